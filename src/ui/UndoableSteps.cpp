#include "ui/UndoableSteps.h"

#include <utility>

#include "skin/Keys.h"
#include "skin/Labels.h"
#include "skin/TextPlaceholders.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/PostLists.h"
#include "store/Posts.h"
#include "ui/Desk.h"

namespace feedloom {
namespace {

bool DeleteStored(Store& store, const RowKey& row) {
  if (row.kind == RowKind::Folder) return DeleteFolder(store, row.id);
  return row.kind == RowKind::Channel ? DeleteChannel(store, row.id) : DeleteCabinet(store, row.id);
}

const char* DeletionText(RowKind kind) {
  if (kind == RowKind::Folder) return kTextFolderDeleted;
  return kind == RowKind::Channel ? kTextChannelDeleted : kTextCabinetDeleted;
}

std::string TextOf(const Desk& desk, const char* key) {
  return desk.GetSkin().GetText(kSectionTexts, key);
}

std::string CountName(const Desk& desk, const char* key, const std::optional<KeptStep>& kept) {
  return WithNumbers(TextOf(desk, key), {kept.value_or(KeptStep()).rows});
}

}  // namespace

UndoableSteps::UndoableSteps(Desk& desk, Hooks hooks, std::chrono::milliseconds offered)
    : desk_(desk), hooks_(std::move(hooks)) {
  offer_.setSingleShot(true);
  offer_.setInterval(offered);
  offer_.callOnTimeout([this] { hooks_.end(); });
}

// `kept` was made before the call, and so before the operation.
template <typename Operation>
bool UndoableSteps::Run(const std::optional<KeptStep>& kept, Step step, Operation operation) {
  Forget();
  const bool isDone = operation();
  if (!kept) return isDone;
  step.id = kept->id;
  step.listing = desk_.State().listings;
  step.announced = desk_.State().announcedTotal;
  if (step.name.empty()) step.name = GetLabel(desk_.GetSkin(), kLabelUndo);
  step_ = std::move(step);
  offer_.start();
  hooks_.begin(step_->name, isDone);
  return isDone;
}

bool UndoableSteps::MarkPosts(const PostIds& posts, int status) {
  const auto kept = KeepMarks(desk_.GetStore(), posts, status);
  return Run(kept, {.name = MarkName(kept, status), .posts = posts},
             [&] { return MarkRead(desk_.GetStore(), posts, status); });
}

bool UndoableSteps::DeletePosts(const PostIds& posts) {
  const auto kept = KeepPosts(desk_.GetStore(), posts);
  return Run(kept, {.name = CountName(desk_, kTextPostsDeleted, kept), .posts = posts},
             [&] { return feedloom::DeletePosts(desk_.GetStore(), posts); });
}

bool UndoableSteps::MarkRow(const RowKey& row, int status) {
  const auto kept = KeepMarks(desk_.GetStore(), row, status);
  return Run(kept, {.name = MarkName(kept, status)},
             [&] { return MarkRead(desk_.GetStore(), row, status); });
}

bool UndoableSteps::DeleteRow(const UndoableRow& row) {
  return Run(KeepRow(desk_.GetStore(), row.key),
             {.name = WithTitle(TextOf(desk_, DeletionText(row.key.kind)), row.name), .row = row},
             [&] { return DeleteStored(desk_.GetStore(), row.key); });
}

std::string UndoableSteps::MarkName(const std::optional<KeptStep>& kept, int status) const {
  return CountName(desk_, status == 0 ? kTextPostsMarkedUnread : kTextPostsMarkedRead, kept);
}

std::optional<std::string> UndoableSteps::Name() const {
  return step_ ? std::optional(step_->name) : std::nullopt;
}

void UndoableSteps::Forget() {
  offer_.stop();
  if (std::exchange(step_, std::nullopt)) hooks_.end();
}

void UndoableSteps::Undo() {
  if (!step_) return;
  hooks_.count();
  const Undone undone = UndoStep(desk_.GetStore(), step_->id);
  if (undone.result == Undone::Result::kFailed) return;
  Step step = *step_;
  Forget();
  if (undone.result == Undone::Result::kNotKept) {
    return desk_.ReportMessage(TextOf(desk_, kTextUndoError));
  }
  RestoreTotals(step);
  if (step.row) step.row->key.id = undone.rowId;
  if (step.listing != desk_.State().listings) step.posts = {};  // another list shows now
  hooks_.show(step.row, step.posts);
  desk_.ReportMessage(WithTitle(TextOf(desk_, kTextUndone), step.name));
}

// What comes back is announced only if it was still to be announced before the step.
void UndoableSteps::RestoreTotals(const Step& step) {
  SharedState& state = desk_.State();
  const int unread = step.row ? step.row->unread : 0;
  state.unreadTotal += unread;
  if (state.announcedTotal != step.announced) state.announcedTotal += unread;
}

}  // namespace feedloom
