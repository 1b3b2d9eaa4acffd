#pragma once

#include <QWidget>

namespace feedloom {

class CRSS_HtmlView;
class Frame;
struct PostRow;

// Once a process, before the engine starts: makes it know the addresses of the module's own pages.
// A second call does nothing.
void PrepareBrowser();

// The lower right pane: the browser, which shows posts and the main page. Interface thread.
class CRSS_RightBottomContainer : public QWidget {
  Q_OBJECT

 public:
  // `frame` outlives the pane.
  CRSS_RightBottomContainer(Frame& frame, QWidget* parent);
  ~CRSS_RightBottomContainer() override;

  // 1: posts show as pages that the module makes; 0: as their own web pages.
  void SetMode(int mode) { mode_ = mode; }

  void ShowMainPage();
  void ShowPost(const PostRow& post);

 signals:
  // The page that was asked for last is loaded, or has failed, and is drawn. The engine may put its
  // images on screen a few frames later.
  void PageShown();

 private:
  void ShowPreview(const PostRow& post);
  void ShowPlayer(const PostRow& post);

  Frame& frame_;
  CRSS_HtmlView* const view_;
  int mode_ = 1;
};

}  // namespace feedloom
