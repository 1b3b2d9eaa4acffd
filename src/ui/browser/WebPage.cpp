#include "ui/browser/WebPage.h"

#include <QUuid>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include "ui/browser/PageScripts.h"

namespace feedloom {
namespace {

void SetUp(QWebEngineSettings& settings) {
  // Nobody sees the icons of pages; a post's own would tell its author who reads it.
  settings.setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
  // A file that the user opens must not read the files beside it.
  settings.setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, false);
}

QWebEngineScript OnReady(const QString& source) {
  QWebEngineScript script;
  script.setSourceCode(source);
  script.setInjectionPoint(QWebEngineScript::DocumentReady);
  script.setWorldId(QWebEngineScript::ApplicationWorld);
  return script;
}

}  // namespace

WebPage::WebPage(QWebEngineProfile* profile, const GeneratedPages& pages, QObject* parent)
    : QWebEnginePage(profile, parent),
      pages_(pages),
      paintedMark_(QUuid::createUuid().toString()),
      refusedMark_(QUuid::createUuid().toString()),
      calmMark_(QUuid::createUuid().toString()) {
  SetUp(*settings());
  scripts().insert(OnReady(WatchPageScript(calmMark_, refusedMark_)));
  connect(this, &QWebEnginePage::loadingChanged, this, &WebPage::OnLoading);
  connect(this, &QWebEnginePage::urlChanged, this, &WebPage::Changed);
  connect(this, &QWebEnginePage::newWindowRequested, this, &WebPage::OpenHere);
  connect(this, &QWebEnginePage::linkHovered, this,
          [this](const QString& link) { ForwardStatus(BrowserReport::Hovered, link); });
  connect(this, &QWebEnginePage::loadProgress, this, [this](int progress) {
    ForwardStatus(BrowserReport::Loading, QString::number(progress));
  });
  connect(this, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl& origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
          });
}

std::optional<GeneratedPage> WebPage::Generated() const {
  const auto number = PageNumber(url());
  return number ? pages_.Find(*number) : std::nullopt;
}

// Navigations.

bool WebPage::acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) {
  const auto page = Generated();
  const bool isPlayer = page && page->kind == PageKind::Player;
  const bool isCrash = page && page->kind == PageKind::Crash;
  const Navigation navigation = {.from = url(),
                                 .to = target,
                                 .cause = CauseOf(target, type),
                                 .isMainFrame = isMainFrame,
                                 .isFromPlayer = isPlayer && !AreScriptsAllowed()};
  const bool isAgain = isCrash && target == page->source;
  const NavigationVerdict verdict = isAgain ? NavigationVerdict::Follow : Judge(navigation);
  if (verdict == NavigationVerdict::Follow && !IsMediaLink(navigation)) {
    Begin(navigation);
    return true;
  }
  Stay(target, verdict);
  return false;
}

// A server's redirect belongs to the navigation that is underway. One that no navigation to a web
// page has brought is the page's own doing; so may be one that comes while a page is still there
// that leads elsewhere by itself.
NavigationCause WebPage::CauseOf(const QUrl& target, NavigationType type) const {
  switch (type) {
    case NavigationTypeTyped:
    case NavigationTypeBackForward:
    case NavigationTypeReload:
      return NavigationCause::Command;
    case NavigationTypeLinkClicked:
      return NavigationCause::Link;
    case NavigationTypeRedirect: {
      const bool isPageCalm = !IsGenerated(url()) || url() == calm_;
      const bool isServers = IsWebAddress(underway_) && IsWebAddress(target) && isPageCalm;
      return isServers ? NavigationCause::Server : NavigationCause::Page;
    }
    default:
      return NavigationCause::Page;
  }
}

bool WebPage::IsMediaLink(const Navigation& navigation) const {
  const auto page = Generated();
  return page && page->kind == PageKind::Podcast && page->source == navigation.to &&
         navigation.cause == NavigationCause::Link;
}

void WebPage::Begin(const Navigation& navigation) {
  const bool isWritten = PageNumber(navigation.to).has_value();
  forwardsStatus_ = !isWritten;
  if (!navigation.isMainFrame) return;
  // What is in the player's frame is a web page: it must not run when scripts are let on.
  const bool isToGenerated = IsGenerated(navigation.to);
  if (IsGenerated(navigation.from) && !isToGenerated) Ask(RemoveFramesScript(), [](const auto&) {});
  AllowScripts(!isToGenerated);
  mayDownload_ = !isToGenerated && navigation.cause != NavigationCause::Page;
  const auto page = isWritten ? pages_.Find(*PageNumber(navigation.to)) : std::nullopt;
  isLarge_ = page && IsLarge(*page);
  loading_ = navigation.to;
  underway_ = navigation.cause == NavigationCause::Page ? QUrl() : navigation.to;
  isLoading_ = true;
  isDrawn_ = false;
  ++loads_;
  emit Changed();
}

void WebPage::Stay(const QUrl& target, NavigationVerdict verdict) {
  switch (verdict) {
    case NavigationVerdict::Follow:
      return ChooseMediaLink(target);
    case NavigationVerdict::Act:
      forwardsStatus_ = false;
      return WhenUserActs(
          [this, action = *ParsePageAction(target.toString(QUrl::FullyEncoded))] { Act(action); });
    case NavigationVerdict::OpenOutside:
      emit OutsideWanted(target);
      return;
    case NavigationVerdict::Report:
      emit Reported(BrowserReport::LinkRefused, target.toDisplayString());
      return;
    case NavigationVerdict::Refuse:
      return;
  }
}

// A web page can follow a link by script, where a generated one cannot. (Of addresses that want a
// program of the system the engine itself sees to that.)
void WebPage::WhenUserActs(const std::function<void()>& run) {
  const bool isCertain = IsGenerated(url());
  Ask(IsUserActiveScript(), [this, isCertain, run, load = loads_](const QVariant& isActive) {
    if (load == loads_ && (isCertain || isActive.toBool())) run();
  });
}

void WebPage::Ask(const QString& script, std::function<void(const QVariant&)> onAnswer) {
  runJavaScript(
      script, QWebEngineScript::ApplicationWorld,
      [alive = std::weak_ptr(alive_), onAnswer = std::move(onAnswer)](const QVariant& answer) {
        if (!alive.expired()) onAnswer(answer);
      });
}

// Unless the page has been left by the time of the answer.
void WebPage::Act(const PageAction& action) {
  const QStringList ids = ElementIds(action);
  Ask(GetElementValuesScript(ids), [this, action, ids, load = loads_](const QVariant& answer) {
    const QStringList texts = answer.toStringList();
    if (load == loads_ && texts.size() == ids.size()) emit ActionClicked(action, texts);
  });
}

// Two links of a podcast's page lead to its media file: one to hear it, and an icon to save it.
void WebPage::ChooseMediaLink(const QUrl& media) {
  Ask(IsImageLinkScript(), [this, media, loads = loads_](const QVariant& isImage) {
    if (loads != loads_) return;  // the page has been left meanwhile
    mayDownload_ = isImage.toBool();
    isImage.toBool() ? download(media) : load(media);
  });
}

void WebPage::OpenHere(const QWebEngineNewWindowRequest& request) {
  if (!request.isUserInitiated()) return;
  const Navigation navigation = {
      .from = url(), .to = request.requestedUrl(), .cause = NavigationCause::Link};
  const NavigationVerdict verdict = Judge(navigation);
  if (verdict != NavigationVerdict::Follow) return Stay(navigation.to, verdict);
  // An empty window, which its opener would fill, would take the opener's place.
  if (IsWebAddress(navigation.to) || navigation.to.isLocalFile()) load(navigation.to);
}

bool WebPage::AreScriptsAllowed() const {
  return settings()->testAttribute(QWebEngineSettings::JavascriptEnabled);
}

void WebPage::AllowScripts(bool allow) {
  settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, allow);
}

// Loads.

// The engine also tells of the loads of refused addresses, from their beginning to their end. One
// that comes while a page is loading has no end of its own.
void WebPage::OnLoading(const QWebEngineLoadingInfo& loading) {
  const bool hasEnded = loading.status() != QWebEngineLoadingInfo::LoadStartedStatus;
  if (!hasEnded || !isLoading_) return;
  isLoading_ = false;
  EndLoad(loading);
  emit Changed();
}

// A load may have ended without another page, in a download or by the user's stop.
void WebPage::EndLoad(const QWebEngineLoadingInfo& loading) {
  underway_ = QUrl();
  AllowScripts(!IsGenerated(url()));
  switch (loading.status()) {
    case QWebEngineLoadingInfo::LoadSucceededStatus:
      ForwardStatus(BrowserReport::Loaded, {});
      break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
      ForwardStatus(BrowserReport::NotLoaded, {});
      break;
    default:
      ForwardStatus(BrowserReport::Stopped, {});
  }
  forwardsStatus_ = false;
  if (!PageNumber(url())) FindFeeds();
  runJavaScript(TellWhenDrawnScript(paintedMark_), QWebEngineScript::ApplicationWorld);
}

void WebPage::FindFeeds() {
  emit Completed();
  Ask(FindFeedsScript(), [this, load = loads_](const QVariant& result) {
    if (load == loads_) emit FeedsFound(ReadFeeds(result));
  });
}

void WebPage::ForwardStatus(BrowserReport report, const QString& detail) {
  if (forwardsStatus_) emit Reported(report, detail);
}

// The engine tells a world that the page cannot enter from others only through the page's console.
void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int,
                                       const QString&) {
  if (message == paintedMark_ && !isLoading_) {
    isDrawn_ = true;
    emit Painted();
  } else if (message.startsWith(calmMark_)) {
    calm_ = QUrl(message.mid(calmMark_.size()));
  } else if (message.startsWith(refusedMark_)) {
    emit Reported(BrowserReport::LinkRefused, message.mid(refusedMark_.size()));
  }
}

void WebPage::javaScriptAlert(const QUrl&, const QString&) {}

bool WebPage::javaScriptConfirm(const QUrl&, const QString&) { return false; }

bool WebPage::javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) {
  return false;
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
  return {};
}

}  // namespace feedloom
