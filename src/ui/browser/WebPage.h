#pragma once

#include <QStringList>
#include <QUrl>
#include <QWebEnginePage>
#include <functional>
#include <memory>
#include <optional>

#include "ui/browser/BrowserReport.h"
#include "ui/browser/FeedLinks.h"
#include "ui/browser/GeneratedPages.h"
#include "ui/browser/NavigationRules.h"

class QWebEngineLoadingInfo;
class QWebEngineNewWindowRequest;

namespace feedloom {

// The engine's page, with the rules for generated ones: they run no scripts, and lead to web pages
// only. A page that asks for a new window gets it in its own place.
class WebPage : public QWebEnginePage {
  Q_OBJECT

 public:
  // `pages` outlives the page.
  WebPage(QWebEngineProfile* profile, const GeneratedPages& pages, QObject* parent);

  bool IsLoading() const { return isLoading_; }
  // What was let through last is loaded, or has failed, and is drawn.
  bool IsDrawn() const { return isDrawn_; }

  // The generated page on display; none when it is a web page or the main page.
  std::optional<GeneratedPage> Generated() const;

 signals:
  // What was opened or followed last is loaded, or has failed, and is drawn.
  void Painted();
  // IsLoading or url() may have changed.
  void Changed();
  // An address other than a generated page's is loaded, as far as it came; and what it announces,
  // unless it has been left by then.
  void Completed();
  void FeedsFound(const feedloom::AnnouncedFeeds& feeds);
  void Reported(feedloom::BrowserReport report, const QString& detail);
  // With the texts of the action's elements. Comes when the engine is through with the click.
  void ActionClicked(const feedloom::PageAction& action, const QStringList& texts);
  void OutsideWanted(const QUrl& url);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                int line, const QString& source) override;

 private:
  NavigationCause CauseOf(const QUrl& target, NavigationType type) const;
  bool IsMediaLink(const Navigation& navigation) const;
  void Begin(const Navigation& navigation);
  void Stay(const QUrl& target, NavigationVerdict verdict);
  void Ask(const QString& script, std::function<void(const QVariant&)> onAnswer);
  void WhenUserActs(const std::function<void()>& run);
  void Act(const PageAction& action);
  void ChooseMediaLink(const QUrl& media);
  void AllowScripts(bool allow);
  void OnLoading(const QWebEngineLoadingInfo& loading);
  void EndLoad(const QWebEngineLoadingInfo& loading);
  void FindFeeds();
  void ForwardStatus(BrowserReport report, const QString& detail);
  void OpenHere(const QWebEngineNewWindowRequest& request);

  const GeneratedPages& pages_;
  const QString paintedMark_;  // nobody else can say these
  const QString refusedMark_;
  QUrl underway_;           // what a command or a link is loading
  bool isLoading_ = false;  // something that was let through
  bool isDrawn_ = true;
  int loads_ = 0;  // let through so far
  // Status texts go on to the host from a navigation that was let through to its end.
  bool forwardsStatus_ = false;
  // The engine answers what it was asked even while it ends.
  const std::shared_ptr<int> alive_ = std::make_shared<int>();
};

}  // namespace feedloom
