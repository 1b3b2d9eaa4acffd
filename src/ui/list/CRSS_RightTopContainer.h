// The upper right pane: the list of posts of the selected row of the tree, or of a search's
// results, with the search box above it. Interface thread only.
#pragma once

#include <QWidget>
#include <unordered_set>

#include "controls/UserPause.h"
#include "look/PaneFrame.h"
#include "ui/Reading.h"
#include "ui/TextSearcher.h"
#include "ui/ViewMemory.h"
#include "ui/list/PostCommands.h"
#include "ui/list/PostFilter.h"
#include "ui/list/WebSearch.h"

class QAbstractItemDelegate;

namespace feedloom {

class CRSS_RightTopToolBarWnd;
class CVxListCtrl;
class PostListModel;

class CRSS_RightTopContainer : public QWidget {
  Q_OBJECT

 public:
  // The first three must outlive the pane. The list is the pane's focus proxy.
  CRSS_RightTopContainer(Desk& desk, Reading& reading, Subscribing& subscribing, QWidget* parent);

  // Replaces the rows by `list` in its order and scrolls to the first row. Shows the number of
  // posts when a search found them. Cancels a running search of the web directory or of texts. The
  // caller sets the list mode before the call and shows a post after it.
  void Fill(PostList list);
  // Replaces the rows by a newer version of the same list. Selection, current row and scroll
  // position are restored by the posts' ids; the sorting stays. Shows no post. Does nothing when
  // all rows are the same.
  void Refill(PostList list);
  // Reads the posts of the rows again from the store, together with `added`, and refills the list
  // with them, newest first, or as a search in texts has found them. Does nothing with the web
  // directory's.
  void Reread(const PostIds& added);

  // Shows the post of row `index` in the browser, marks it read and selects its row. Posts of the
  // web directory are not in the store and are not marked. Shows the main page when there is no
  // such row.
  void Show(int index);
  // Shows the post that `shown` asks for, without marking a Glimpse read. Shows the first post when
  // none is unread, and the main page when the list is empty.
  void ShowFirst(FirstPost shown);
  // Shows the next unread post after the current row, or the previous one. When there is none,
  // calls Reading::GoToUnreadRow. Does nothing while a search of the web directory runs.
  void GoToUnread(bool forward);

  // Runs the command with this number of ui/Commands.h for the selected posts.
  void Run(int command) { commands_.Run(command); }

  // Follows SharedState::isUnreadOnly: shows all posts, or hides those that are read. The selected
  // posts and the one that was shown last stay until the user leaves them. What a search has found
  // is always shown.
  void FollowUnreadOnly();

  // Shows the rows on two lines each, without columns and headings, or in columns.
  void SetTwoLines(bool areTwo);

  // What is to be remembered of the pane.
  ListMemory Memory() const;
  // Take the remembered up: Recall the widths and the scope, RecallPlace the order of the posts and
  // the current and topmost one, when the list has been filled with the same posts. No post is
  // shown.
  void Recall(const ListMemory& memory);
  void RecallPlace(const ListMemory& memory);
  // Empties the list and returns its content as Fill takes it.
  PostList Take();
  // The listed post with this id; nullopt when there is none.
  std::optional<PostRow> Find(int postId) const;

  // Whether the list has no rows and says so itself, as some hosts want.
  bool SaysEmpty() const { return !EmptyText().isEmpty(); }

  // The user has turned to the post on display: it is marked read if it is a Glimpse.
  void MarkGlimpsed() { commands_.MarkGlimpsed(); }

  // Moves the keyboard focus to the search box.
  void FocusSearch();

 signals:
  // The user wants only unread posts to be shown, or all.
  void UnreadOnlyWanted(bool isOn);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetUpList();
  void SetUpKeys();
  QAbstractItemDelegate* NewDelegate(bool hasTwoLines);
  void ShowClicked(int row);
  void NoteFilled(const PostList& list);
  QString EmptyText() const;
  PostFilter FilterFor(std::unordered_set<int> kept) const;
  std::unordered_set<int> Held() const;
  void HideLeft();
  void OpenMenu(const QModelIndex& row, const QPoint& place);
  void Search();
  // Appends rows of the same kind. Scroll position, selection and sorting stay.
  void Append(PostList list);
  void SearchStore(const std::string& word);

  Desk& desk_;
  Reading& reading_;
  const bool isCareful_;  // the host wants rows to be selected carefully
  const PaneFrame border_;
  CRSS_RightTopToolBarWnd& toolbar_;
  PostListModel& model_;
  CVxListCtrl& list_;
  PostCommands commands_;
  WebSearch webSearch_;
  TextSearcher textSearcher_;
  UserPause pause_{this, [this] { HideLeft(); }};
  PostList filled_;  // what the list was filled with last, without its posts
};

}  // namespace feedloom
