#pragma once

#include <QPoint>
#include <QUrl>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "search/TextQuery.h"
#include "ui/Login.h"
#include "ui/browser/BrowserReport.h"
#include "ui/browser/Downloads.h"
#include "ui/browser/FeedLinks.h"
#include "ui/browser/FrameLinks.h"
#include "ui/browser/MediaBar.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"

class QPrinter;

namespace feedloom {

// A generated page, to be shown.
struct PageToWrite {
  QByteArray html;  // UTF-8
  PageKind kind = PageKind::Post;
  QUrl source = {};  // the address of the post, or of its media file
  bool showsRemoteImages = true;
  QString title = {};     // of the post
  QString channel = {};   // or cabinet, where the post is listed
  TextQuery marked = {};  // whose words are marked on display; without parts for none
};

// What is at the point where the user has opened the context menu.
struct MenuTarget {
  QPoint place;  // on the screen
  QUrl link;     // empty without a link
  QString selectedText;
};

// The browser: a view of the browser engine, whose types it hides. Interface thread.
class CRSS_HtmlView : public QWidget {
  Q_OBJECT

 public:
  struct Callbacks {
    // Returns the directory from which generated pages may show images.
    SkinDirectory skinDir;
    // Returns the page to show when the renderer process of `crashed` has ended unexpectedly: HTML
    // in UTF-8, with a link to `crashed`.
    std::function<QByteArray(const QUrl& crashed)> crashPage;
    // Returns the style of generated pages without a source; its sheet is a file in skinDir.
    std::function<PageStyle()> style = [] { return PageStyle(); };
    // Asks where to save the file `name`, which comes from `host`; empty when the user cancels.
    std::function<QString(const QString& name, const QString& host)> askSavePath;
    // Asks for a name and a password; std::nullopt when the user gives up.
    std::function<std::optional<Login>(const LoginQuestion& question)> askLogin;
    // Returns whether all but generated pages open in the system's browser.
    std::function<bool()> opensOutside = [] { return false; };
    // Returns the text of the line that stands for a frame in a post.
    std::function<QString(const FrameLink& link)> frameText = {};
  };
  // A callback is called each time its value is needed, on the interface thread. `parent` owns the
  // view.
  CRSS_HtmlView(Callbacks callbacks, QWidget* parent);
  ~CRSS_HtmlView() override;

  void Navigate(const QUrl& url);

  // Shows a generated page as a new entry of the history. Does nothing when its HTML is empty.
  void WritePageToBrowser(const PageToWrite& page);

  // Does what a click on the button of `action` in the page on display does.
  void Act(const PageAction& action);

  void GoBack();
  void GoForward();
  void Reload();
  // Stops the load in progress; without one, stops all downloads.
  void Stop();
  void StopDownloads();

  bool CanGoBack() const;
  bool CanGoForward() const;
  bool IsLoading() const;
  bool IsDownloading() const;
  // Whether the page on display is a generated one.
  bool IsWritten() const;
  // What the page on display plays; none unless it is a player's page.
  std::optional<PlayedMedia> Played() const;
  // The address of the page on display; empty for a generated page and for the main page.
  QUrl Address() const;
  // Like Address(), but for the generated page of a post the address of the post.
  QUrl OutsideAddress() const;

  // Enlarges all pages from now on by `steps`, or reduces them when it is negative, within the
  // sizes from 25% to 500%; 0 restores the normal size.
  void Zoom(int steps);
  // The size by which all pages are enlarged, in steps from the normal one.
  int ZoomSteps() const { return zoomSteps_; }
  // How far the page on display is scrolled, in its own pixels. ScrollWhenShown scrolls the page
  // that was requested last, when it is drawn, unless another one is requested before.
  QPointF Scrolled() const;
  void ScrollWhenShown(const QPointF& place);
  // Scrolls as CRSS_RightBottomContainer::ScrollScreen does.
  void ScrollScreen(bool isOn, std::function<void(bool)> onScrolled);
  // Highlights all matches of `text`, scrolls to the next one, or the previous one with `backward`,
  // and emits FoundInPage. An empty text ends the search.
  void Find(const QString& text, bool backward);
  // Prints the page on display; the view owns the printer until that is done. Does nothing while
  // another print is in progress.
  void Print(std::unique_ptr<QPrinter> printer);

 signals:
  // The page that was requested last is loaded, or has failed to load, and is drawn. Its images may
  // appear a few frames later.
  void PageShown();
  // The result of CanGoBack() to OutsideAddress() may have changed.
  void Changed();
  // The load of a page that is not generated has ended, successfully or not.
  void Completed();
  // The feeds that this page announces; comes after Completed.
  void FeedsFound(const feedloom::AnnouncedFeeds& feeds);
  void Reported(feedloom::BrowserReport report, const QString& detail);
  void DownloadChanged(feedloom::DownloadEvent event, const QString& name, const QString& progress);
  // The user has pressed a button of a page. `texts` are those of ElementIds(action), in order.
  void ActionClicked(const feedloom::PageAction& action, const QStringList& texts);
  // The user has clicked a link that another program of the system opens, such as mailto.
  void OutsideWanted(const QUrl& url);
  void MenuRequested(const feedloom::MenuTarget& target);
  // The number of the match that is shown, counted from 1, and the number of all matches.
  void FoundInPage(int active, int all);

 private:
  class Engine;

  void Connect();
  void ShowCrash();
  void ReplaceFrames(const QStringList& frames);
  void ApplyZoom();
  void ScrollShown();
  bool IsRenderingLargePage() const;

  const std::unique_ptr<Engine> engine_;
  int zoomSteps_ = 0;
  QPointF placeWhenShown_;  // where the next page is to be scrolled to; null for nowhere
};

}  // namespace feedloom
