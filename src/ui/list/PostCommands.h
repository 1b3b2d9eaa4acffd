// The commands of the list: for its clicks, keys and context menu.
#pragma once

#include <QPersistentModelIndex>
#include <optional>
#include <vector>

#include "controls/CVxListCtrl.h"
#include "controls/KeyRest.h"
#include "ui/Menus.h"
#include "ui/Reading.h"

class QMimeData;

namespace feedloom {

class Desk;
class PostListModel;

// A post whose row is not selected and has its menu open. The row goes when the list is filled
// again; a post of the web directory has no id.
struct MenuPost {
  QPersistentModelIndex row;
  int id = 0;
};

// A command acts on the selected rows, or on the post that it is given. Where it can do nothing, a
// status text says why: no row is selected, or posts of the web directory are to be changed, which
// are not in the store. When the store fails, which it reports, the list and the counts are read
// again. The object may have been deleted when a command that asks the user returns. Interface
// thread only.
class PostCommands {
 public:
  // The arguments must outlive the object. `list` shows `model`.
  PostCommands(Desk& desk, Reading& reading, PostListModel& model, CVxListCtrl& list)
      : desk_(desk), reading_(reading), model_(model), list_(list) {}

  // Shows the post of this row in the browser, marks it read and adds the row to the selection.
  // Shows the main page when there is no such row.
  void Show(int row);
  // As Show, but the row becomes the only selected one.
  void ShowOnly(int row);
  // As Show, but the post is marked read only by MarkGlimpsed.
  void Glimpse(int row);
  // The id of the post that was shown last; none after ForgetShown, or when the main page was.
  std::optional<int> Shown() const { return shown_; }
  void ForgetShown() { shown_.reset(); }
  // Marks the post read that Glimpse has shown, unless another one was shown since.
  void MarkGlimpsed();
  // Shows the post of the current row when the keys rest, if no other row is selected then.
  void FollowKeys() { rest_.start(); }
  // Shows the post of the current row; does nothing without one.
  void ShowCurrent();
  // Shows the next unread post after the current row, or the previous one. When there is none,
  // calls Reading::GoToUnreadRow.
  void GoToUnread(bool forward);

  // Runs the command with this number of ui/Commands.h. When it deletes a `post` that is given and
  // not on display, selection and page stay.
  void Run(int command, const std::optional<MenuPost>& post = {});
  // The context menu for `row`, or for the selected rows when it is invalid; nullopt for an empty
  // list. What the keys have come to is shown before.
  std::optional<Menu> ContextMenu(const QModelIndex& row);

  // What is dragged from the row `pressed`: the selected posts if it is one of them, else its own.
  // The caller owns it.
  QMimeData* Dragged(int pressed);

 private:
  bool PostsAreStored() const;
  void Display(int row, bool isGlimpse);
  void ShowReached();
  void MarkRead(int row, const PostRow& post);
  // The key of the text why the command can do nothing now; null when it can.
  const char* WhyNot(int command) const;
  void ToggleRead();
  void MarkSelected(int status);
  PostIds Stored(const std::vector<int>& ids) const;
  void Recount(const PostIds& changed);
  void Reload(const PostIds& changed);
  std::string HiddenThatStay() const;
  void Delete(const std::vector<int>& rows, const char* question, const std::string& more = {});
  void Remove(const std::vector<int>& rows, bool isAside);
  std::vector<int> AllRows() const;
  std::vector<int> ActedRows() const;
  void Scrap();
  std::vector<PostRow> PostsAt(const std::vector<int>& rows) const;

  Desk& desk_;
  Reading& reading_;
  PostListModel& model_;
  CVxListCtrl& list_;
  KeyRest rest_{&list_, [this] { ShowReached(); }};
  std::optional<MenuPost> menuPost_;  // of the command that runs
  std::optional<int> shown_;
  std::optional<int> glimpsed_;  // the id of a post on display that is not marked yet
};

}  // namespace feedloom
