#include "ui/browser/WebPage.h"

#include <QUuid>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineScript>
#include <QWebEngineSettings>

namespace feedloom {

WebPage::WebPage(QWebEngineProfile* profile, QObject* parent)
    : QWebEnginePage(profile, parent), paintedMark_(QUuid::createUuid().toString()) {
  connect(this, &QWebEnginePage::loadFinished, this, &WebPage::EndLoad);
  connect(this, &QWebEnginePage::newWindowRequested, this, &WebPage::OpenHere);
}

void WebPage::Open(const QUrl& url) {
  AllowScripts(!IsGenerated(url));
  load(url);
}

bool WebPage::acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) {
  const NavigationCause cause = CauseOf(target, type);
  if (!MayNavigate(url(), target, cause, isMainFrame)) return false;
  if (!isMainFrame) return true;
  AllowScripts(!IsGenerated(target));
  underway_ = cause == NavigationCause::Page ? QUrl() : target;
  return true;
}

// A server's redirect belongs to the navigation that is underway. One that no navigation to a web
// page has brought is the page's own doing.
NavigationCause WebPage::CauseOf(const QUrl& target, NavigationType type) const {
  switch (type) {
    case NavigationTypeTyped:
    case NavigationTypeBackForward:
    case NavigationTypeReload:
      return NavigationCause::Command;
    case NavigationTypeLinkClicked:
      return NavigationCause::Link;
    case NavigationTypeRedirect:
      return IsWebAddress(underway_) && IsWebAddress(target) ? NavigationCause::Link
                                                             : NavigationCause::Page;
    default:
      return NavigationCause::Page;
  }
}

void WebPage::AllowScripts(bool allow) {
  settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, allow);
}

// A load may have ended without another page, in a download or by the user's stop.
void WebPage::EndLoad() {
  underway_ = QUrl();
  AllowScripts(!IsGenerated(url()));
  AwaitPicture();
}

void WebPage::OpenHere(const QWebEngineNewWindowRequest& request) {
  const QUrl target = request.requestedUrl();
  if (request.isUserInitiated() && MayNavigate(url(), target, NavigationCause::Link, true)) {
    Open(target);
  }
}

// The second animation frame after the load begins when the first one has been handed over. The
// engine tells of it only through the page's console, from a world that the page cannot enter.
void WebPage::AwaitPicture() {
  runJavaScript(QStringLiteral("requestAnimationFrame(() => requestAnimationFrame(() => "
                               "console.log('%1')))")
                    .arg(paintedMark_),
                QWebEngineScript::ApplicationWorld);
}

void WebPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& message, int,
                                       const QString&) {
  if (message == paintedMark_) emit Painted();
}

}  // namespace feedloom
