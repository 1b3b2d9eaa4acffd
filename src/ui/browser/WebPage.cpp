#include "ui/browser/WebPage.h"

#include <QAuthenticator>
#include <QJsonDocument>
#include <QTimer>
#include <QUuid>
#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include "ui/browser/PageScripts.h"
#include "ui/browser/PostAddresses.h"

namespace feedloom {
namespace {

void SetUp(QWebEngineSettings& settings) {
  // Page icons are not shown, and a post's icon would tell its author who reads it.
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

BrowserReport ReportOf(QWebEngineLoadingInfo::LoadStatus end) {
  switch (end) {
    case QWebEngineLoadingInfo::LoadSucceededStatus:
      return BrowserReport::Loaded;
    case QWebEngineLoadingInfo::LoadFailedStatus:
      return BrowserReport::NotLoaded;
    default:
      return BrowserReport::Stopped;
  }
}

}  // namespace

WebPage::WebPage(QWebEngineProfile* profile, const GeneratedPages& pages, AskLogin askLogin,
                 QObject* parent)
    : QWebEnginePage(profile, parent),
      pages_(pages),
      askLogin_(std::move(askLogin)),
      paintedMark_(QUuid::createUuid().toString()),
      readyMark_(QUuid::createUuid().toString()),
      refusedMark_(QUuid::createUuid().toString()),
      noRefreshMark_(QUuid::createUuid().toString()),
      framesMark_(QUuid::createUuid().toString()) {
  SetUp(*settings());
  scripts().insert(OnReady(WatchPageScript(readyMark_, noRefreshMark_, refusedMark_)));
  scripts().insert(OnReady(FindPicturesScript()));
  scripts().insert(OnReady(FindFramesScript(framesMark_)));
  connect(this, &QWebEnginePage::loadingChanged, this, &WebPage::OnLoading);
  connect(this, &QWebEnginePage::urlChanged, this, &WebPage::OnUrl);
  connect(this, &QWebEnginePage::newWindowRequested, this, &WebPage::OpenHere);
  connect(this, &QWebEnginePage::linkHovered, this, [this](const QString& link) {
    ForwardStatus(BrowserReport::Hovered, Meant(QUrl(link)).toString(QUrl::FullyEncoded));
  });
  connect(this, &QWebEnginePage::loadProgress, this, [this](int progress) {
    ForwardStatus(BrowserReport::Loading, QString::number(progress));
  });
  connect(this, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl& origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
          });
  connect(this, &QWebEnginePage::authenticationRequired, this,
          [this](const QUrl& address, QAuthenticator* login) {
            Answer(address, {HostOf(address), OneLine(login->realm()), false}, *login);
          });
  connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
          [this](const QUrl& address, QAuthenticator* login, const QString& proxy) {
            Answer(address, {proxy, OneLine(login->realm()), true}, *login);
          });
}

std::optional<GeneratedPage> WebPage::Generated() const {
  const auto number = PageNumber(url());
  return number ? pages_.Find(*number) : std::nullopt;
}

QUrl WebPage::Meant(const QUrl& link) const {
  const auto page = Generated();
  return page && !ParsePageAction(link.toString(QUrl::FullyEncoded))
             ? AddressInSource(link, page->source)
             : link;
}

bool WebPage::acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) {
  NoteArrival();
  const auto page = Generated();
  const bool isPlayer = page && page->kind == PageKind::Player;
  const bool isCrash = page && page->kind == PageKind::Crash;
  const NavigationCause cause = CauseOf(target, type);
  const Navigation navigation = {.from = url(),
                                 .to = cause == NavigationCause::Link ? Meant(target) : target,
                                 .cause = cause,
                                 .isMainFrame = isMainFrame,
                                 .isFromPlayer = isPlayer && !AreScriptsAllowed(),
                                 .opensOutside = opensOutside_()};
  const bool isCrashedPage =
      isCrash && target == page->source && (IsGenerated(target) || !navigation.opensOutside);
  const NavigationVerdict verdict = isCrashedPage ? NavigationVerdict::Follow : Judge(navigation);
  const bool mayOpen =
      verdict == NavigationVerdict::Follow || verdict == NavigationVerdict::OpenOutside;
  if (mayOpen && IsMediaLink(navigation)) {
    PlayOrSaveMedia(navigation.to);
    return false;
  }
  if (verdict == NavigationVerdict::Follow) {
    // Only the module itself types; back and reload may be a script's.
    return Follow(navigation, target, type == NavigationTypeTyped || load_.isOrdered);
  }
  HandleUnfollowed(navigation.to, verdict);
  return false;
}

// A relative link of a post leads elsewhere than the engine has `asked` for.
bool WebPage::Follow(const Navigation& navigation, const QUrl& asked, bool isUsers) {
  if (navigation.to == asked) {
    Begin(navigation, isUsers);
    return true;
  }
  QTimer::singleShot(0, this, [this, to = navigation.to] { load(to); });
  return false;
}

NavigationCause WebPage::CauseOf(const QUrl& target, NavigationType type) const {
  switch (type) {
    case NavigationTypeTyped:
    case NavigationTypeBackForward:
    case NavigationTypeReload:
      return NavigationCause::Command;
    case NavigationTypeLinkClicked:
      return NavigationCause::Link;
    case NavigationTypeRedirect: {
      const QUrl page = url().adjusted(QUrl::RemoveFragment);
      return IsServersRedirect(load_, page, target) ? NavigationCause::Server
                                                    : NavigationCause::Page;
    }
    default:
      return NavigationCause::Page;
  }
}

bool WebPage::IsMediaLink(const Navigation& navigation) const {
  const auto page = Generated();
  return page && page->kind == PageKind::Podcast && page->source == navigation.to &&
         IsWebAddress(navigation.to) && navigation.cause == NavigationCause::Link;
}

void WebPage::Begin(const Navigation& navigation, bool isUsers) {
  if (!navigation.isMainFrame) {
    load_ = FrameBegun(load_, navigation.to);
    return;
  }
  // The player's frame holds a web page, whose scripts must not run when scripts are enabled.
  const bool isToGenerated = IsGenerated(navigation.to);
  if (IsGenerated(navigation.from) && !isToGenerated) Ask(RemoveFramesScript(), [](const auto&) {});
  AllowScripts(!isToGenerated);
  // The engine does not report the end of a load that another one replaces.
  if (IsAbandonedBy(load_, navigation)) ForwardStatus(BrowserReport::Stopped, {});
  load_ = Begun(load_, navigation, isUsers);
  emit Changed();
}

void WebPage::Order(WebAction action) {
  load_ = Ordered(load_);
  triggerAction(action);
}

void WebPage::HandleUnfollowed(const QUrl& target, NavigationVerdict verdict) {
  switch (verdict) {
    case NavigationVerdict::Follow:
      return;
    case NavigationVerdict::Act:
      load_.reportsStatus = false;
      return RunIfUserActive(
          [this, action = *ParsePageAction(target.toString(QUrl::FullyEncoded))] { Act(action); });
    case NavigationVerdict::OpenOutside:
      emit OutsideWanted(target);
      return;
    case NavigationVerdict::Report:
      emit Reported(BrowserReport::LinkRefused, target.toString(QUrl::FullyEncoded));
      return;
    case NavigationVerdict::Refuse:
      return;
  }
}

// A script of a web page can follow a link; a generated page has no scripts. (For links to programs
// of the system the engine itself requires a click.)
void WebPage::RunIfUserActive(const std::function<void()>& run) {
  const bool isCertain = IsGenerated(url());
  Ask(IsUserActiveScript(), [this, isCertain, run, load = load_.number](const QVariant& isActive) {
    if (load == load_.number && (isCertain || isActive.toBool())) run();
  });
}

void WebPage::Ask(const QString& script, std::function<void(const QVariant&)> onAnswer) {
  runJavaScript(
      script, QWebEngineScript::ApplicationWorld,
      [alive = std::weak_ptr(alive_), onAnswer = std::move(onAnswer)](const QVariant& answer) {
        if (!alive.expired()) onAnswer(answer);
      });
}

void WebPage::Act(const PageAction& action) {
  const QStringList ids = ElementIds(action);
  Ask(GetElementValuesScript(ids),
      [this, action, ids, load = load_.number](const QVariant& answer) {
        const QStringList texts = answer.toStringList();
        if (load == load_.number && texts.size() == ids.size()) emit ActionClicked(action, texts);
      });
}

// A podcast's page has two links to its media file: a text to play it, and an icon to save it.
void WebPage::PlayOrSaveMedia(const QUrl& media) {
  Ask(IsImageLinkScript(), [this, media, number = load_.number](const QVariant& isImage) {
    if (number != load_.number) return;  // the page has been left meanwhile
    Touch();                             // only the user clicks in a generated page
    isImage.toBool() ? download(media) : load(media);
  });
}

void WebPage::OpenHere(const QWebEngineNewWindowRequest& request) {
  if (!request.isUserInitiated()) return;
  const Navigation navigation = {.from = url(),
                                 .to = Meant(request.requestedUrl()),
                                 .cause = NavigationCause::Link,
                                 .opensOutside = opensOutside_()};
  const NavigationVerdict verdict = Judge(navigation);
  if (verdict != NavigationVerdict::Follow) return HandleUnfollowed(navigation.to, verdict);
  // An empty window, which its opener would fill by script, would replace the opener.
  if (IsWebAddress(navigation.to) || navigation.to.isLocalFile()) load(navigation.to);
}

bool WebPage::AreScriptsAllowed() const {
  return settings()->testAttribute(QWebEngineSettings::JavascriptEnabled);
}

void WebPage::AllowScripts(bool allow) {
  settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, allow);
}

void WebPage::Touch() { load_ = Touched(load_); }

bool WebPage::MayDownload(const QUrl& address) {
  const DownloadVerdict verdict = JudgeDownload(load_, address);
  load_ = Judged(load_, verdict);
  if (verdict == DownloadVerdict::Tell) {
    emit Reported(BrowserReport::DownloadRefused,
                  HostOf(address.host().isEmpty() ? url() : address));
  }
  return verdict == DownloadVerdict::Ask;
}

// An empty login makes the engine show the page with which the server turns strangers away. The
// page may be deleted while the dialog is open.
void WebPage::Answer(const QUrl& address, const LoginQuestion& question, QAuthenticator& answer) {
  std::optional<Login> login;
  if (MayAskLogin(load_, address, question)) {
    load_ = LoginAsked(load_, question);
    const AskLogin ask = askLogin_;
    login = ask(question);
  }
  answer = QAuthenticator();
  if (!login) return;
  answer.setUser(login->name);
  answer.setPassword(login->password);
}

// The engine may tell the address of a page that has not come; the history has only those that
// have.
void WebPage::NoteArrival() { load_ = Arrived(load_, history()->currentItem().url()); }

void WebPage::OnUrl() {
  NoteArrival();
  emit Changed();
}

// The engine also reports the start and the end of refused loads; without an end when another page
// is loading at the time.
void WebPage::OnLoading(const QWebEngineLoadingInfo& loading) {
  const bool hasEnded = loading.status() != QWebEngineLoadingInfo::LoadStartedStatus;
  NoteArrival();
  if (!hasEnded || !IsEndOf(load_, loading.url())) return;
  EndLoad(loading.status());
  emit Changed();
}

// A load may have ended without a new page: as a download, or stopped by the user.
void WebPage::EndLoad(QWebEngineLoadingInfo::LoadStatus status) {
  const bool reportsStatus = load_.reportsStatus;
  load_ = Ended(load_, status == QWebEngineLoadingInfo::LoadSucceededStatus);
  AllowScripts(!IsGenerated(url()));
  if (reportsStatus) emit Reported(ReportOf(status), {});
  if (!PageNumber(url())) FindFeeds();
  runJavaScript(TellWhenDrawnScript(paintedMark_), QWebEngineScript::ApplicationWorld);
}

void WebPage::FindFeeds() {
  emit Completed();
  Ask(FindFeedsScript(), [this, load = load_.number](const QVariant& result) {
    if (load == load_.number) emit FeedsFound(ReadFeeds(result));
  });
}

void WebPage::ForwardStatus(BrowserReport report, const QString& detail) {
  if (load_.reportsStatus) emit Reported(report, detail);
}

// Scripts in the module's own script world can notify the module only through the page's console.
void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int,
                                       const QString&) {
  if (message == paintedMark_ && !IsUnderWay(load_)) {
    load_ = Drawn(load_);
    emit Painted();
  } else if (message.startsWith(readyMark_)) {
    if (QUrl(message.mid(readyMark_.size())) == url()) emit Ready();
  } else if (message.startsWith(noRefreshMark_)) {
    load_.noRefreshPage = QUrl(message.mid(noRefreshMark_.size()));
  } else if (message.startsWith(framesMark_)) {
    const QByteArray list = message.mid(framesMark_.size()).toUtf8();
    emit FramesFound(QJsonDocument::fromJson(list).toVariant().toStringList());
  } else if (message.startsWith(refusedMark_)) {
    emit Reported(BrowserReport::LinkRefused, message.mid(refusedMark_.size()));
  }
}

void WebPage::javaScriptAlert(const QUrl&, const QString&) {}

bool WebPage::javaScriptConfirm(const QUrl&, const QString& text) { return IsLeaveQuestion(text); }

bool WebPage::javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) {
  return false;
}

QStringList WebPage::chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) {
  return {};
}

}  // namespace feedloom
