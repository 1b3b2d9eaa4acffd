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
  // The page on display is about to be left for one whose answer has not begun to come.
  bool IsLeaving() const { return isLoading_ && url() != loading_; }
  // The engine's process is not through with what was let through last: a generated page that is
  // large.
  bool IsLaboring() const { return isLarge_ && !isDrawn_; }
  // Whether a download that is requested now comes from the user, or from a web page.
  bool MayDownload() const { return mayDownload_ || !IsGenerated(url()); }

  // Does what a click on the button does.
  void Act(const PageAction& action);

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
  // A page's own dialogs: their answer is no. They would stand in an event loop inside the engine.
  void javaScriptAlert(const QUrl& origin, const QString& text) override;
  bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
  bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                        QString* result) override;
  QStringList chooseFiles(FileSelectionMode mode, const QStringList& old,
                          const QStringList& types) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                int line, const QString& source) override;

 private:
  NavigationCause CauseOf(const QUrl& target, NavigationType type) const;
  bool IsMediaLink(const Navigation& navigation) const;
  void Begin(const Navigation& navigation);
  void Stay(const QUrl& target, NavigationVerdict verdict);
  void Ask(const QString& script, std::function<void(const QVariant&)> onAnswer);
  void WhenUserActs(const std::function<void()>& run);
  void ChooseMediaLink(const QUrl& media);
  bool AreScriptsAllowed() const;
  void AllowScripts(bool allow);
  void OnLoading(const QWebEngineLoadingInfo& loading);
  void EndLoad(const QWebEngineLoadingInfo& loading);
  void FindFeeds();
  void ForwardStatus(BrowserReport report, const QString& detail);
  void OpenHere(const QWebEngineNewWindowRequest& request);

  const GeneratedPages& pages_;
  const QString paintedMark_;  // nobody else can say these
  const QString refusedMark_;
  const QString calmMark_;
  QUrl underway_;           // what a command or a link is loading
  bool isLoading_ = false;  // something that was let through
  bool isDrawn_ = true;
  bool isLarge_ = false;
  bool mayDownload_ = false;
  QUrl loading_;   // what was let through last
  QUrl calm_;      // the page that has told of itself that it leads nowhere
  int loads_ = 0;  // let through so far
  // Status texts go on to the host from a navigation that was let through to its end.
  bool forwardsStatus_ = false;
  // The engine answers what it was asked even while it ends.
  const std::shared_ptr<int> alive_ = std::make_shared<int>();
};

}  // namespace feedloom
