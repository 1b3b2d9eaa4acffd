// The functions of GroupTreeModel that move rows.
#include <algorithm>
#include <utility>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {

bool GroupTreeModel::MoveChannel(int channelId, int folderId) {
  const QModelIndex channel = FindChannel(channelId);
  GroupRow* const to = FindFolder(folderId);
  if (!channel.isValid() || to == nullptr || channel.internalPointer() == to) return false;
  const auto place = std::ranges::upper_bound(to->children, *ChildAt(channel), IsOrderedBefore);
  MoveChild(channel, *to, static_cast<int>(place - to->children.begin()));
  return true;
}

bool GroupTreeModel::PlaceChannel(int channelId, int folderId, int row) {
  const QModelIndex channel = FindChannel(channelId);
  GroupRow* const to = FindFolder(folderId);
  if (!channel.isValid() || to == nullptr) return false;
  const bool isThere = channel.internalPointer() == to && channel.row() == row;
  if (!isThere) MoveChild(channel, *to, row);
  int order = 0;
  for (ChildRow& child : to->children) child.order = ++order;
  return true;
}

bool GroupTreeModel::PlaceFolder(int folderId, int row) {
  const QModelIndex folder = Find({RowKind::Folder, folderId});
  if (!folder.isValid()) return false;
  const int from = folder.row();
  if (from != row) {
    beginMoveRows({}, from, from, {}, row > from ? row + 1 : row);
    auto group = std::move(groups_[static_cast<std::size_t>(from)]);
    groups_.erase(groups_.begin() + from);
    groups_.insert(groups_.begin() + row, std::move(group));
    endMoveRows();
  }
  int order = 0;
  for (const auto& group : groups_) {
    if (IsMovable(*group)) group->order = ++order;
  }
  return true;
}

// Makes the row the one with this number in `to`.
void GroupTreeModel::MoveChild(const QModelIndex& child, GroupRow& to, int row) {
  auto& from = *static_cast<GroupRow*>(child.internalPointer());
  const bool goesDown = &from == &to && row > child.row();
  beginMoveRows(IndexOf(from), child.row(), child.row(), IndexOf(to), goesDown ? row + 1 : row);
  const auto taken = from.children.begin() + child.row();
  ChildRow moved = std::move(*taken);
  from.children.erase(taken);
  moved.folderId = to.id;
  const int unreadCount = moved.unreadCount;
  to.children.insert(to.children.begin() + row, std::move(moved));
  ReindexChannels(from);
  ReindexChannels(to);
  endMoveRows();
  if (&from == &to) return;
  AddToUnread(from, -unreadCount);
  AddToUnread(to, unreadCount);
}

}  // namespace feedloom
