#include "ui/browser/WebPage.h"

#include <QUuid>
#include <QWebEngineScript>
#include <QWebEngineSettings>

#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

NavigationCause CauseOf(QWebEnginePage::NavigationType type) {
  switch (type) {
    case QWebEnginePage::NavigationTypeTyped:
    case QWebEnginePage::NavigationTypeBackForward:
    case QWebEnginePage::NavigationTypeReload:
      return NavigationCause::Command;
    case QWebEnginePage::NavigationTypeLinkClicked:
      return NavigationCause::Link;
    default:
      return NavigationCause::Page;
  }
}

}  // namespace

WebPage::WebPage(QWebEngineProfile* profile, QObject* parent)
    : QWebEnginePage(profile, parent), paintedMark_(QUuid::createUuid().toString()) {
  connect(this, &QWebEnginePage::loadFinished, this, &WebPage::AwaitPicture);
}

void WebPage::Open(const QUrl& url) {
  AllowScripts(!IsGenerated(url));
  load(url);
}

bool WebPage::acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) {
  if (!MayNavigate(url(), target, CauseOf(type), isMainFrame)) return false;
  if (isMainFrame) AllowScripts(!IsGenerated(target));
  return true;
}

void WebPage::AllowScripts(bool allow) {
  settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, allow);
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
