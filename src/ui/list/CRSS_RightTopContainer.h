// The upper right pane: the posts of what the tree has selected, or those that a search found, and
// above them the search box.
#pragma once

#include <QWidget>

#include "ui/Frame.h"
#include "ui/list/PostCommands.h"
#include "ui/list/WebSearch.h"
#include "vxctrl/PaneFrame.h"

namespace feedloom {

class CRSS_RightTopToolBarWnd;
class CVxListCtrl;
class PostListModel;

class CRSS_RightTopContainer : public QWidget {
  Q_OBJECT

 public:
  // `frame` outlives the pane; the pane's focus goes to the list.
  CRSS_RightTopContainer(Frame& frame, QWidget* parent);

  // Replaces the rows and scrolls to the first; they stand in the order given. Shows how many a
  // search has found. The caller sets the frame's list mode before, and has a post shown after. A
  // search of the web directory that runs is given up.
  void Fill(PostList list);
  // The same posts with what has come since: selection, current row and scroll position stay, by
  // the posts' ids, and so does the sorting. Shows nothing.
  void Refill(PostList list);

  // Has the browser show the post of row `index`, marks it read (not in the web directory's list,
  // whose posts are not the store's) and selects its row. Without such a row, the main page.
  void Show(int index);
  // The first row when none is unread, the main page when there is none.
  void ShowFirst(FirstShown shown);
  // The next unread post behind the current row, or the one before it; with none in the list the
  // frame is asked for another row of the tree. Nothing while a search of the web directory runs.
  void GoToUnread(bool forward);

  void FocusSearch();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpList();
  void SetUpKeys();
  void ShowClicked(int row);
  void OpenMenu(const QPoint& place);
  void Search();
  // Rows of the same kind behind the others; place, selection and sorting stay.
  void Append(PostList list);
  void SearchStore(const std::string& word);

  Frame& frame_;
  const PaneFrame border_;
  CRSS_RightTopToolBarWnd& toolbar_;
  PostListModel& model_;
  CVxListCtrl& list_;
  PostCommands commands_;
  WebSearch webSearch_;
};

}  // namespace feedloom
