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

// The engine's page with the rules for generated pages: they run no scripts and lead to web pages
// only. A new window that a page requests opens in this page instead. Interface thread.
class WebPage : public QWebEnginePage {
  Q_OBJECT

 public:
  // `profile` and `pages` outlive the page.
  WebPage(QWebEngineProfile* profile, const GeneratedPages& pages, QObject* parent);

  // `opensOutside` returns whether all but generated pages open in the system's browser.
  void SetOpensOutside(std::function<bool()> opensOutside) {
    opensOutside_ = std::move(opensOutside);
  }

  bool IsLoading() const { return isLoading_; }
  // Whether a navigation is pending: the next page is requested, but its answer has not begun.
  bool IsLeaving() const { return isLoading_ && url() != navigationTarget_; }
  // Whether the renderer process is still busy with a large generated page.
  bool IsRenderingLargePage() const { return isLarge_ && !isDrawn_; }
  // Whether a download that begins now is allowed: the user or a web page has requested it.
  bool MayDownload() const { return mayDownload_ || !IsGenerated(url()); }

  // Reads the texts of the action's elements and emits ActionClicked, unless the page is left
  // first.
  void Act(const PageAction& action);

  // The generated page on display; none for a web page and for the main page.
  std::optional<GeneratedPage> Generated() const;
  // The address that a link of the page on display means: in a post it may be relative.
  QUrl Meant(const QUrl& link) const;

 signals:
  // The page of the latest navigation is loaded, or has failed to load, and is drawn.
  void Painted();
  // IsLoading() or url() may have changed.
  void Changed();
  // The load of a page that is not generated has ended, successfully or not.
  void Completed();
  // The feeds that this page announces. Comes after Completed, unless the page is left first.
  void FeedsFound(const feedloom::AnnouncedFeeds& feeds);
  void Reported(feedloom::BrowserReport report, const QString& detail);
  // The user has pressed a button. `texts` are those of ElementIds(action), in order.
  void ActionClicked(const feedloom::PageAction& action, const QStringList& texts);
  // The generated page on display has frames at these addresses.
  void FramesFound(const QStringList& addresses);
  // The user has clicked a link that another program of the system opens.
  void OutsideWanted(const QUrl& url);

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
  // The dialogs of a page are declined without being shown: they would run an event loop inside the
  // engine.
  void javaScriptAlert(const QUrl& origin, const QString& text) override;
  bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
  bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                        QString* result) override;
  QStringList chooseFiles(FileSelectionMode mode, const QStringList& old,
                          const QStringList& types) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                int line, const QString& source) override;

 private:
  bool Follow(const Navigation& navigation, const QUrl& asked);
  NavigationCause CauseOf(const QUrl& target, NavigationType type) const;
  bool IsMediaLink(const Navigation& navigation) const;
  void Begin(const Navigation& navigation);
  void HandleUnfollowed(const QUrl& target, NavigationVerdict verdict);
  void Ask(const QString& script, std::function<void(const QVariant&)> onAnswer);
  void RunIfUserActive(const std::function<void()>& run);
  void PlayOrSaveMedia(const QUrl& media);
  bool AreScriptsAllowed() const;
  void AllowScripts(bool allow);
  void OnLoading(const QWebEngineLoadingInfo& loading);
  void EndLoad(const QWebEngineLoadingInfo& loading);
  void FindFeeds();
  void ForwardStatus(BrowserReport report, const QString& detail);
  void OpenHere(const QWebEngineNewWindowRequest& request);

  const GeneratedPages& pages_;
  // Prefixes of the scripts' console messages; random, so that no page can forge them.
  const QString paintedMark_;
  const QString refusedMark_;
  const QString noRefreshMark_;
  const QString framesMark_;
  std::function<bool()> opensOutside_ = [] { return false; };
  QUrl userNavigation_;          // the target of a Command or Link that is loading; otherwise empty
  bool isLoading_ = false;       // a navigation that was accepted has not ended
  bool isDrawn_ = true;          // the page of the latest navigation has been drawn
  bool isLarge_ = false;         // that page is a large generated one
  bool mayDownload_ = false;     // that navigation may become a download
  QUrl navigationTarget_;        // of the latest accepted navigation
  QUrl noRefreshPage_;           // the latest generated page that has reported no meta refresh
  int navigations_ = 0;          // the number of accepted navigations of the main frame
  bool forwardsStatus_ = false;  // Reported is emitted from an accepted navigation to its end
  // Expires with the page: the engine answers pending scripts even in the page's destructor.
  const std::shared_ptr<int> alive_ = std::make_shared<int>();
};

}  // namespace feedloom
