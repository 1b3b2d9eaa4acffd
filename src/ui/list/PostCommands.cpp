#include "ui/list/PostCommands.h"

#include <QScrollBar>
#include <algorithm>
#include <numeric>
#include <utility>

#include "controls/CVxListCtrl.h"
#include "skin/Keys.h"
#include "skin/TextPlaceholders.h"
#include "store/PostLists.h"
#include "ui/Desk.h"
#include "ui/SavedPosts.h"
#include "ui/UndoableSteps.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/list/ListMenu.h"
#include "ui/list/PostListModel.h"

namespace feedloom {

bool PostCommands::PostsAreStored() const {
  return desk_.State().listMode != ListMode::WebDirectory;
}

void PostCommands::Show(int row) { Display(row, false); }

void PostCommands::Glimpse(int row) { Display(row, true); }

void PostCommands::Display(int row, bool isGlimpse) {
  rest_.stop();
  glimpsed_.reset();
  shown_.reset();
  if (row < 0 || row >= model_.rowCount()) return reading_.ShowMainPage();
  const PostRow post = model_.At(row);
  reading_.ShowPost(post);
  shown_ = model_.IdAt(row);
  if (isGlimpse) {
    glimpsed_ = shown_;
  } else if (PostsAreStored()) {
    MarkRead(row, post);
  }
  // The title cell becomes current: screen readers read it, and letter keys search its column.
  list_.selectionModel()->setCurrentIndex(model_.index(row, kTitleColumn),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void PostCommands::MarkGlimpsed() {
  const auto id = std::exchange(glimpsed_, std::nullopt);
  if (!id || !PostsAreStored()) return;
  for (const int row : model_.RowsOf({&*id, 1})) MarkRead(row, model_.At(row));
}

void PostCommands::MarkRead(int row, const PostRow& post) {
  if (post.readStatus != 0) return;
  const PostIds stored = Stored({model_.IdAt(row)});
  if (!feedloom::MarkRead(desk_.GetStore(), stored, 1)) return;
  model_.SetReadStatus({&row, 1}, 1);
  reading_.PostWasRead(post, !stored.saved.empty());
}

void PostCommands::ShowOnly(int row) {
  list_.clearSelection();
  Show(row);
  list_.SetAnchor(row);
}

void PostCommands::ShowCurrent() {
  if (list_.currentIndex().isValid()) Show(list_.currentIndex().row());
}

void PostCommands::ShowReached() {
  const int row = list_.currentIndex().row();
  if (list_.SelectedRows() == std::vector{row}) Show(row);
}

void PostCommands::GoToUnread(bool forward) {
  MarkGlimpsed();
  const QModelIndex current = list_.currentIndex();
  const int beyond = forward ? -1 : model_.rowCount();
  const int unread = model_.FindUnread(current.isValid() ? current.row() : beyond, forward);
  unread < 0 ? reading_.GoToUnreadRow(forward) : ShowOnly(unread);
}

// A post is on display before it can be deleted.
void PostCommands::Run(int command, const std::optional<MenuPost>& post) {
  rest_.Settle();
  menuPost_ = post;
  if (const char* const reason = WhyNot(command)) return TellText(desk_, reason);
  switch (command) {
    case kCommandMarkRead:
      return MarkSelected(1);
    case kCommandMarkUnread:
      return MarkSelected(0);
    case kCommandToggleRead:
      return ToggleRead();
    case kCommandDelete:
      return Delete(ActedRows(), kTextDeletePosts);
    case kCommandDeleteAll:
      return Delete(AllRows(), kTextDeleteAllPosts, HiddenThatStay());
    case kCommandScrap:
      return Scrap();
    default:
      return;
  }
}

std::optional<Menu> PostCommands::ContextMenu(const QModelIndex& row) {
  rest_.Settle();
  const std::vector<int> selected = row.isValid() ? std::vector{row.row()} : list_.SelectedRows();
  return ListMenu({.mode = desk_.State().listMode,
                   .rows = model_.rowCount(),
                   .selected = static_cast<int>(selected.size()),
                   .isRead = !selected.empty() && model_.IsReadAt(selected.front())});
}

const char* PostCommands::WhyNot(int command) const {
  if (command != kCommandDeleteAll && ActedRows().empty()) return kTextNothingSelected;
  return command == kCommandScrap || PostsAreStored() ? nullptr : kTextNotStored;
}

void PostCommands::ToggleRead() {
  const auto isRead = [this](int row) { return model_.IsReadAt(row); };
  MarkSelected(std::ranges::all_of(ActedRows(), isRead) ? 0 : 1);
}

void PostCommands::MarkSelected(int status) {
  const std::vector<int> rows = ActedRows();
  const PostIds stored = Stored(model_.IdsOf(rows));
  if (!desk_.Steps().MarkPosts(stored, status)) return Reload(stored);
  model_.SetReadStatus(rows, status);
  Recount(stored);
}

PostIds PostCommands::Stored(const std::vector<int>& ids) const {
  return StoredIds(ids, model_.AreScrapPosts());
}

void PostCommands::Recount(const PostIds& changed) {
  if (!changed.posts.empty()) reading_.RecountUnread(false);
  if (!changed.saved.empty()) reading_.RecountUnread(true);
}

// Some of several SQL statements may have been executed before one failed.
void PostCommands::Reload(const PostIds& changed) {
  Recount(changed);
  reading_.ReloadSelection();
}

std::vector<int> PostCommands::AllRows() const {
  std::vector<int> rows(static_cast<std::size_t>(model_.rowCount()));
  std::iota(rows.begin(), rows.end(), 0);
  return rows;
}

std::vector<int> PostCommands::ActedRows() const {
  if (!menuPost_) return list_.SelectedRows();
  if (menuPost_->row.isValid()) return {menuPost_->row.row()};
  return PostsAreStored() ? model_.RowsOf({&menuPost_->id, 1}) : std::vector<int>();
}

std::string PostCommands::HiddenThatStay() const {
  if (model_.HiddenCount() == 0) return {};
  return WithNumbers(desk_.GetSkin().GetText(kSectionTexts, kTextHiddenPostsStay),
                     {model_.HiddenCount()});
}

void PostCommands::Delete(const std::vector<int>& rows, const char* question,
                          const std::string& more) {
  if (rows.empty()) return;
  // The ids are taken before the question, as a refresh may add rows while the user is asked.
  const std::vector<int> ids = model_.IdsOf(rows);
  const PostIds stored = Stored(ids);
  const bool isOther = menuPost_.has_value();
  const auto answer = desk_.Ask(question, more, MsgBoxKind::OkCancel);
  if (answer != MsgBoxAnswer::Consented) return;  // the object may have been deleted
  if (!desk_.Steps().DeletePosts(stored)) return Reload(stored);
  const std::vector<int> deleted = model_.RowsOf(ids);
  Remove(deleted, isOther && !std::ranges::binary_search(deleted, list_.currentIndex().row()));
  Recount(stored);
  if (deleted.size() < ids.size()) reading_.ReloadSelection();  // some were hidden meanwhile
}

// The lines of the view that stay keep their places.
void PostCommands::Remove(const std::vector<int>& rows, bool isAside) {
  if (rows.empty()) return;
  QScrollBar& bar = *list_.verticalScrollBar();
  const auto above = std::ranges::lower_bound(rows, bar.value()) - rows.begin();
  const int top = bar.value() - static_cast<int>(above);
  if (!isAside) list_.clearSelection();
  model_.Remove(rows);
  if (!isAside) ShowOnly(std::min(rows.front(), model_.rowCount() - 1));
  list_.doItemsLayout();  // updates the scroll bar's range for the rows that are left
  bar.setValue(top);
}

void PostCommands::Scrap() {
  const std::optional<int> cabinet = ChooseCabinet(desk_, &list_);
  if (!cabinet) return;  // the object may have been deleted
  // This comes last, as the object may be deleted while the message box is open.
  if (SavePosts(desk_, reading_, *cabinet, PostsAt(ActedRows()))) {
    desk_.ShowTextMessage(kSectionTexts, kTextScrapFinished, MsgBoxKind::Notice);
  }
}

std::vector<PostRow> PostCommands::PostsAt(const std::vector<int>& rows) const {
  std::vector<PostRow> posts;
  for (const int row : rows) posts.push_back(model_.At(row));
  return posts;
}

QMimeData* PostCommands::Dragged(int pressed) {
  rest_.Settle();
  std::vector<int> rows = list_.SelectedRows();
  if (!std::ranges::binary_search(rows, pressed)) rows = {pressed};
  return PostsAreStored() ? new DraggedPosts(Stored(model_.IdsOf(rows)), {})
                          : new DraggedPosts({}, PostsAt(rows));
}

}  // namespace feedloom
