#pragma once

#include <QStringList>
#include <QUrl>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>
#include <functional>
#include <memory>
#include <optional>

#include "ui/browser/BrowserReport.h"
#include "ui/browser/FeedLinks.h"
#include "ui/browser/GeneratedPages.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageLoad.h"
#include "ui/browser/PageQuestions.h"

class QAuthenticator;
class QWebEngineNewWindowRequest;

namespace feedloom {

// Asks the user for a name and a password; std::nullopt when the user gives up. Blocks while the
// dialog is open; the page may be deleted meanwhile.
using AskLogin = std::function<std::optional<Login>(const LoginQuestion& question)>;

// The engine's page with the rules for generated pages: they run no scripts and lead to web pages
// only. A new window that a page requests opens in this page instead. Interface thread.
class WebPage : public QWebEnginePage {
  Q_OBJECT

 public:
  // `profile` and `pages` outlive the page.
  WebPage(QWebEngineProfile* profile, const GeneratedPages& pages, AskLogin askLogin,
          QObject* parent);

  // `opensOutside` returns whether all but generated pages open in the system's browser.
  void SetOpensOutside(std::function<bool()> opensOutside) {
    opensOutside_ = std::move(opensOutside);
  }

  const PageLoad& Load() const { return load_; }

  // Whether the user may be asked where to save what comes from `address`. Each call counts as the
  // page's question. A refusal is reported once after each deed of the user.
  bool MayDownload(const QUrl& address);
  // Back, Forward or Reload, as the user's order.
  void Order(WebAction action);
  // The user has clicked or typed in the page.
  void Touch();

  // Reads the texts of the action's elements and emits ActionClicked, unless the page is left
  // first.
  void Act(const PageAction& action);

  // Runs a script of ui/browser/PageScripts.h and calls `onAnswer` with its value, unless the page
  // object is deleted first.
  void Ask(const QString& script, std::function<void(const QVariant&)> onAnswer);

  // The generated page on display; none for a web page and for the main page.
  std::optional<GeneratedPage> Generated() const;
  // The address that a link of the page on display means: in a post it may be relative.
  QUrl Meant(const QUrl& link) const;

 signals:
  // The document of the generated page on display is complete; its images may still be missing.
  void Ready();
  // The page of the latest navigation is loaded, or has failed to load, and is drawn.
  void Painted();
  // Load() or url() may have changed.
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
  // engine. The engine's own question whether the page may be left is answered with yes.
  void javaScriptAlert(const QUrl& origin, const QString& text) override;
  bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
  bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                        QString* result) override;
  QStringList chooseFiles(FileSelectionMode mode, const QStringList& old,
                          const QStringList& types) override;
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message,
                                int line, const QString& source) override;

 private:
  bool Follow(const Navigation& navigation, const QUrl& asked, bool isUsers);
  NavigationCause CauseOf(const QUrl& target, NavigationType type) const;
  bool IsMediaLink(const Navigation& navigation) const;
  void Begin(const Navigation& navigation, bool isUsers);
  void HandleUnfollowed(const QUrl& target, NavigationVerdict verdict);
  void RunIfUserActive(const std::function<void()>& run);
  void PlayOrSaveMedia(const QUrl& media);
  bool AreScriptsAllowed() const;
  void AllowScripts(bool allow);
  void Answer(const QUrl& address, const LoginQuestion& question, QAuthenticator& answer);
  void NoteArrival();
  void OnUrl();
  void OnLoading(const QWebEngineLoadingInfo& loading);
  void EndLoad(QWebEngineLoadingInfo::LoadStatus status);
  void FindFeeds();
  void ForwardStatus(BrowserReport report, const QString& detail);
  void OpenHere(const QWebEngineNewWindowRequest& request);

  const GeneratedPages& pages_;
  const AskLogin askLogin_;
  // Prefixes of the scripts' console messages; random, so that no page can forge them.
  const QString paintedMark_;
  const QString readyMark_;
  const QString refusedMark_;
  const QString noRefreshMark_;
  const QString framesMark_;
  std::function<bool()> opensOutside_ = [] { return false; };
  PageLoad load_;
  // Expires with the page: the engine answers pending scripts even in the page's destructor.
  const std::shared_ptr<int> alive_ = std::make_shared<int>();
};

}  // namespace feedloom
