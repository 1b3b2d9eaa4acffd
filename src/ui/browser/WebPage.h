#pragma once

#include <QString>
#include <QWebEnginePage>

namespace feedloom {

// The engine's page, with the rules for generated ones: they run no scripts, and lead to web pages
// only.
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
  void AllowScripts(bool allow);
  void AwaitPicture();

  const QString paintedMark_;  // nobody else can say it
};

}  // namespace feedloom
