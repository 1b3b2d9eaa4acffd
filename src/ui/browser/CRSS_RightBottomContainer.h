// The lower right pane: the browser, which shows posts, the main page and web pages, and above it
// its toolbar.
#pragma once

#include <QUrl>
#include <QWidget>
#include <memory>
#include <optional>

#include "store/Rows.h"
#include "vxctrl/PaneFrame.h"

namespace feedloom {

class CRSS_HtmlView;
class CRSS_RightBottomToolBarWnd;
class FindBar;
class Frame;
class PageCommands;
enum BrowserCommand : int;
struct AnnouncedFeeds;
struct PageToWrite;

// Once a process, before the engine starts: makes it know the addresses of the module's own pages,
// and show pages to screen readers. A second call does nothing.
void PrepareBrowser();

// Interface thread.
class CRSS_RightBottomContainer : public QWidget {
  Q_OBJECT

 public:
  // `frame` outlives the pane.
  CRSS_RightBottomContainer(Frame& frame, QWidget* parent);
  ~CRSS_RightBottomContainer() override;

  // 1: posts show as pages that the module makes; 0: as their own web pages.
  void SetMode(int mode) { mode_ = mode; }
  // A post that is on display shows as the mode now wants it; any other page stays.
  void Redraw();

  void ShowMainPage();
  void ShowPost(const PostRow& post);

 signals:
  // The page that was asked for last is loaded, or has failed, and is drawn. The engine may put its
  // images on screen a few frames later.
  void PageShown();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  // The post that the pane was asked to show last.
  struct ShownPost {
    PostRow post;
    int mode;                // that it was shown in
    bool isWritten = false;  // as a page of the module's own
    QUrl address = {};       // of its page, which is known when a web page has been drawn
    bool isKnown = false;
  };

  bool IsOnDisplay(const ShownPost& shown) const;
  void NotePageShown();
  void ConnectView();
  void ConnectFindBar();
  void SetUpKeys();
  void Run(BrowserCommand command);
  void Go();
  void WritePage(const PageToWrite& page);
  void UpdateToolBar();
  void ForgetFeeds();
  void KeepFeeds(const AnnouncedFeeds& feeds);
  void OfferFeeds();

  Frame& frame_;
  const PaneFrame border_;
  CRSS_RightBottomToolBarWnd* const toolbar_;
  QWidget* const page_;  // the view, and the find bar below it
  CRSS_HtmlView* const view_;
  FindBar* const findBar_;
  const std::unique_ptr<PageCommands> commands_;
  int mode_ = 1;
  std::optional<ShownPost> shownPost_;
  QUrl shownAddress_;      // in the address box
  bool isActing_ = false;  // a dialog of a page's button is open
};

}  // namespace feedloom
