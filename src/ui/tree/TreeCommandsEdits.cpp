// The commands of TreeCommands that delete and rename.
#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/Order.h"
#include "store/SqlText.h"
#include "ui/Desk.h"
#include "ui/Reading.h"
#include "ui/Refreshing.h"
#include "ui/SavedPosts.h"
#include "ui/UndoableSteps.h"
#include "ui/dialogs/Dialogs.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/TreeCommands.h"

namespace feedloom {
namespace {

// How many rows beside `row` are hidden, in the direction of `step`, and as it is negative or not.
int HiddenBeside(const QTreeView& tree, const QModelIndex& row, int step) {
  int next = row.row() + step;
  while (tree.isRowHidden(next, row.parent())) next += step;
  return next - step - row.row();
}

// The row that takes the place of `row` when that goes: below it, else above it, else its group.
QModelIndex NextTo(const QTreeView& tree, const QModelIndex& row) {
  for (const int step : {1, -1}) {
    QModelIndex next = row.sibling(row.row() + step, 0);
    while (next.isValid() && tree.isRowHidden(next.row(), next.parent())) {
      next = next.sibling(next.row() + step, 0);
    }
    if (next.isValid()) return next;
  }
  return row.parent();
}

}  // namespace

void TreeCommands::DeleteSelection() {
  const auto target = Selected();
  if (!target || target->kind == RowKind::CabinetRoot) return;
  IsGroup(target->kind) ? DeleteGroup() : DeleteChild();
}

void TreeCommands::DeleteChild() {
  const auto child = SelectedChild();
  if (!child) {
    Ask(kTextDeleteChildError, MsgBoxKind::Notice);
    return;
  }
  const bool isChannel = child->kind == RowKind::Channel;
  const char* const question = isChannel ? kTextDeleteChannel : kTextDeleteCabinet;
  if (desk_.Ask(question, HiddenIn(*child), MsgBoxKind::YesNo) != MsgBoxAnswer::Consented) return;
  if (isChannel && refreshing_.IsAnyChannelQueued({&child->id, 1})) {
    Ask(kTextDeleteBusyError, MsgBoxKind::Notice);
    return;
  }
  Delete(*child);
}

// DeleteGroup asks this before and after its question, as a timer may start a refresh meanwhile.
bool TreeCommands::IsFolderQueued(const Target& folder) const {
  const GroupRow* const group = model_.GroupAt(folder.row);
  if (group == nullptr) return false;
  std::vector<int> channelIds;
  for (const ChildRow& channel : group->children) channelIds.push_back(channel.id);
  return refreshing_.IsAnyChannelQueued(channelIds);
}

void TreeCommands::DeleteGroup() {
  const auto folder = Selected(RowKind::Folder);
  if (!folder || folder->order < 0) {
    Ask(folder ? kTextDeleteProtectedError : kTextDeleteGroupError, MsgBoxKind::Notice);
    return;
  }
  const bool mayDelete = !IsFolderQueued(*folder);
  const auto ask = [&] {
    return desk_.Ask(kTextDeleteGroup, HiddenIn(*folder), MsgBoxKind::YesNo);
  };
  if (mayDelete && ask() != MsgBoxAnswer::Consented) return;
  if (!mayDelete || IsFolderQueued(*folder)) {
    Ask(kTextDeleteBusyError, MsgBoxKind::Notice);
    return;
  }
  Delete(*folder);
}

void TreeCommands::Delete(const Target& target) {
  desk_.Steps().DeleteRow({.key = {target.kind, target.id},
                           .name = target.name,
                           .unread = target.row.data(GroupTreeModel::UnreadRole).toInt(),
                           .isOpen = tree_.isExpanded(target.row)});
  RemoveRow(target.row);
}

// The list may show the row's posts without the row being selected: as those of its group.
void TreeCommands::RemoveRow(const QPersistentModelIndex& row) {
  const QModelIndex selected = tree_.SelectedRow();
  if (selected == row || selected.parent() == row) return RemoveListedRow(row);
  desk_.State().unreadTotal -= model_.Remove(row);
  reading_.ReloadSelection();
}

void TreeCommands::RemoveListedRow(const QPersistentModelIndex& row) {
  const QPersistentModelIndex next = tree_.SelectsCarefully() ? NextTo(tree_, row) : QModelIndex();
  if (!next.isValid()) reading_.ListPosts(ListMode::Selection, {});
  tree_.ClearSelection();
  desk_.State().unreadTotal -= model_.Remove(row);
  if (next.isValid()) tree_.GoTo(next);
}

void TreeCommands::MoveTo(const RowKey& moved, const RowPlace& place) {
  if (PlaceOf(model_.Groups(), moved) == place) return;
  const char* fault = nullptr;
  if (IsAddressIn(moved.kind == RowKind::Channel ? moved.id : 0, place.folderId)) {
    fault = kTextAddChannelDuplicate;
  } else if (!StorePlace(moved, place)) {
    fault = kTextMoveError;
  }
  if (fault) return desk_.ReportMessage(desk_.GetSkin().GetText(kSectionTexts, fault));
  if (moved.kind == RowKind::Folder) return void(model_.PlaceFolder(moved.id, place.row));
  model_.PlaceChannel(moved.id, place.folderId, place.row);
  tree_.scrollTo(model_.FindChannel(moved.id));
  reading_.ReloadSelection();  // a folder's posts are listed by channels
}

// A folder has an address once. The channel's own folder has it in that channel.
bool TreeCommands::IsAddressIn(int channelId, int folderId) const {
  const ChildRow* const channel = model_.ChildAt(model_.FindChannel(channelId));
  int id = 0, order = 0;
  return channel != nullptr && channel->folderId != folderId &&
         FindChannelByXmlLink(desk_.GetStore(), channel->xmlLink, folderId, id, order);
}

bool TreeCommands::StorePlace(const RowKey& moved, const RowPlace& place) {
  const std::vector<int> ids = IdsWith(model_.Groups(), moved, place);
  return moved.kind == RowKind::Folder ? OrderFolders(desk_.GetStore(), ids)
                                       : OrderChannels(desk_.GetStore(), place.folderId, ids);
}

void TreeCommands::Save(const DraggedPosts& posts, int cabinetId) {
  if (!SavePosts(desk_, reading_, cabinetId, posts.Read(desk_))) return;
  desk_.ReportMessage(desk_.GetSkin().GetText(kSectionTexts, kTextScrapFinished));
}

// Rows that are hidden are no step.
std::optional<RowPlace> TreeCommands::StepOf(const QModelIndex& row, int step) const {
  const auto key = model_.KeyOf(row);
  return key ? StepFrom(model_.Groups(), *key, step + HiddenBeside(tree_, row, step))
             : std::nullopt;
}

template <int step>
void TreeCommands::MoveBy() {
  if (const auto place = StepOf(row_, step)) MoveTo(*model_.KeyOf(row_), *place);
}
template void TreeCommands::MoveBy<-1>();
template void TreeCommands::MoveBy<1>();

void TreeCommands::RenameGroup() {
  const auto folder = Selected(RowKind::Folder);
  if (!folder || folder->order < 0) return;
  const auto name = AskGroupName(desk_, &tree_, folder->name);
  if (!name) return;
  if (RenameFolder(desk_.GetStore(), folder->id, *name)) {
    model_.Rename(folder->row, UnescapeEntities(*name));  // the form in which it is stored
  } else {
    Ask(kTextRenameGroupError, MsgBoxKind::Notice);
  }
}

void TreeCommands::RenameChild() {
  const auto child = SelectedChild();
  if (!child) return;
  const bool isChannel = child->kind == RowKind::Channel;
  const auto name = isChannel ? AskChannelName(desk_, &tree_, DetailsOf(*child))
                              : AskCabinetName(desk_, &tree_, child->name);
  if (!name) return;
  const auto rename = isChannel ? RenameChannel : RenameCabinet;
  if (rename(desk_.GetStore(), child->id, *name)) {
    model_.Rename(child->row, UnescapeEntities(*name));
  } else {
    Ask(kTextRenameChildError, MsgBoxKind::Notice);
  }
}

}  // namespace feedloom
