#pragma once

#include <QString>
#include <QUrl>
#include <QWebEnginePage>

#include "ui/browser/PageRules.h"

class QWebEngineNewWindowRequest;

namespace feedloom {

// The engine's page, with the rules for generated ones: they run no scripts, and lead to web pages
// only. A page that asks for a new window gets it in its own place.
class WebPage : public QWebEnginePage {
  Q_OBJECT

 public:
  WebPage(QWebEngineProfile* profile, QObject* parent);

  void Open(const QUrl& url);

 signals:
  // What was opened or followed last is loaded, or has failed, and is drawn.
  void Painted();

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                int line, const QString& source) override;

 private:
  NavigationCause CauseOf(const QUrl& target, NavigationType type) const;
  void AllowScripts(bool allow);
  void EndLoad();
  void OpenHere(const QWebEngineNewWindowRequest& request);
  void AwaitPicture();

  const QString paintedMark_;  // nobody else can say it
  QUrl underway_;              // what a command or a link is loading
};

}  // namespace feedloom
