// The upper right pane: the posts of what the tree has selected, and later those that a search
// found.
#pragma once

#include <QWidget>

namespace feedloom {

class CVxListCtrl;
class Frame;
struct PostList;
class PostListModel;
struct PostRow;

class CRSS_RightTopContainer : public QWidget {
  Q_OBJECT

 public:
  // `frame` outlives the pane.
  CRSS_RightTopContainer(Frame& frame, QWidget* parent);

  // Replaces the rows and scrolls to the first. The caller sets the frame's list mode before, and
  // shows row 0, or -1 when there is none, after.
  void Fill(PostList list);
  // The same posts with what has come since: selection, current row and scroll position stay, by
  // the posts' ids. Shows nothing.
  void Refill(PostList list);

  // Has the browser show the post of row `index`, marks it read (not in the web directory's list,
  // whose posts are not the store's) and selects its row. Without such a row, the main page.
  void Show(int index);

 private:
  void ShowClicked(int row);
  void MarkRead(int row);
  void SelectRow(int row);

  Frame& frame_;
  PostListModel& model_;
  CVxListCtrl& list_;
  bool areScrapPosts_ = false;
};

}  // namespace feedloom
