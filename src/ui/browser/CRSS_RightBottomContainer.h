// The lower right pane: the browser, which shows posts, the main page and web pages, and above it
// its toolbar.
#pragma once

#include <QUrl>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "look/PaneFrame.h"
#include "store/Rows.h"
#include "ui/ViewMemory.h"

namespace feedloom {

class CRSS_HtmlView;
class CRSS_RightBottomToolBarWnd;
class FindBar;
class MediaBar;
class Desk;
class PageCommands;
class Reading;
class Subscribing;
enum BrowserCommand : int;
struct AnnouncedFeeds;
struct BrowserServices;
struct PageToWrite;

// Registers the URL scheme of generated pages, and makes the engine show pages to screen readers.
// Call it before the engine starts; a second call does nothing.
void PrepareBrowser();

// Interface thread.
class CRSS_RightBottomContainer : public QWidget {
  Q_OBJECT

 public:
  // All but `parent` outlive the pane.
  CRSS_RightBottomContainer(Desk& desk, Subscribing& subscribing, Reading& reading,
                            const BrowserServices& services, QWidget* parent);
  ~CRSS_RightBottomContainer() override;

  // How ShowPost shows posts from now on. 1: as generated pages; 0: as their own web pages.
  void SetMode(int mode) { mode_ = mode; }
  // Shows the post on display again when the mode has changed since; any other page stays.
  void Redraw();

  void ShowMainPage();
  void ShowEmptyPage();
  void ShowPost(const PostRow& post);
  // Shows a page of the web, or opens it outside where the host wishes for that.
  void ShowWebPage(const QUrl& address);

  // Runs the command with this number of ui/Commands.h for the page, or the post, on display.
  void RunCommand(int command);
  // Scrolls the page by nine tenths of its height, back when `isOn` is false. Calls `onScrolled`
  // with whether it has moved, unless another page is shown, or the pane ended, before. A focused
  // control of the page, which this key would press, is pressed instead.
  void ScrollScreen(bool isOn, std::function<void(bool)> onScrolled);

  // What is to be remembered of the pane, and its taking up, which shows no post.
  PageMemory Memory() const;
  void Recall(const PageMemory& memory);
  // What is on display, and showing it again at the same place of the page. Of a web page the
  // address is kept, and not what the user has done in it. There must be one.
  PageContent Content() const;
  void Show(const PageContent& content);

 signals:
  // The page that was requested last is loaded, or has failed to load, and is drawn. Its images may
  // appear a few frames later.
  void PageShown();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // The post of the latest call of ShowPost.
  struct ShownPost {
    PostRow post;
    int mode;                // the mode in which it was shown
    bool isWritten = false;  // it is shown as a generated page
    QUrl address = {};       // of its page
    bool isKnown = false;    // `address` is known: of a web page, when it has been drawn
  };

  bool IsOnDisplay(const ShownPost& shown) const;
  void NotePageShown();
  void ConnectView();
  void ConnectBars();
  void SetUpKeys();
  void OpenPost();
  void Run(BrowserCommand command);
  void Go();
  void WritePage(PageToWrite page);
  void UpdateToolBar();
  void ForgetFeeds();
  void KeepFeeds(const AnnouncedFeeds& feeds);
  void OfferFeeds();
  bool OpensOutside() const;

  Desk& desk_;
  Subscribing& subscribing_;
  Reading& reading_;
  const BrowserServices& services_;
  const PaneFrame border_;
  CRSS_RightBottomToolBarWnd* const toolbar_;
  QWidget* const page_;  // the view, and the two bars below it
  CRSS_HtmlView* const view_;
  FindBar* const findBar_;
  MediaBar* const mediaBar_;
  const std::unique_ptr<PageCommands> commands_;
  int mode_ = 1;
  std::optional<ShownPost> shownPost_;
  QUrl shownAddress_;      // the latest address that was given to the toolbar
  bool isActing_ = false;  // a dialog of a page's button is open
};

}  // namespace feedloom
