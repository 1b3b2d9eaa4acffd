// The functions of GroupTreeModel that add, rename and remove single rows.
#include <algorithm>
#include <tuple>
#include <utility>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
GroupRow* GroupTreeModel::FindFolder(int folderId) const {
  const auto found = std::ranges::find_if(groups_, [&](const auto& group) {
    return group->kind == RowKind::Folder && group->id == folderId;
  });
  return found == groups_.end() ? nullptr : found->get();
}

// The cabinet root stays the last group.
void GroupTreeModel::Insert(FolderRow folder, Place place) {
  if (groups_.empty() || FindFolder(folder.id) != nullptr) return;
  auto group = ToRow(std::move(folder));
  const auto end = groups_.end() - 1;
  const auto at =
      place == Place::kLast
          ? end
          : std::upper_bound(groups_.begin(), end, group, [](const auto& a, const auto& b) {
              return std::tie(a->order, a->id) < std::tie(b->order, b->id);
            });
  const auto row = static_cast<int>(at - groups_.begin());
  beginInsertRows({}, row, row);
  groups_.insert(at, std::move(group));
  endInsertRows();
}

void GroupTreeModel::Insert(CabinetRow cabinet, Place place) {
  if (groups_.empty() || FindCabinet(cabinet.id).isValid()) return;
  InsertChild(*groups_.back(), ToRow(std::move(cabinet)), place);
}

bool GroupTreeModel::Insert(ChannelRow channel, Place place) {
  GroupRow* const folder = FindFolder(channel.folderId);
  if (folder == nullptr || channels_.contains(channel.id)) return false;
  const int id = channel.id;
  const int unreadCount = std::exchange(channel.unreadCount, 0);
  InsertChild(*folder, ToRow(std::move(channel)), place);
  SetChannelUnread(id, unreadCount);
  return true;
}

void GroupTreeModel::InsertChild(GroupRow& group, ChildRow child, Place place) {
  std::vector<ChildRow>& rows = group.children;
  const auto at =
      place == Place::kLast ? rows.end() : std::ranges::upper_bound(rows, child, IsOrderedBefore);
  const auto row = static_cast<int>(at - rows.begin());
  beginInsertRows(IndexOf(group), row, row);
  rows.insert(at, std::move(child));
  if (group.kind == RowKind::Folder) ReindexChannels(group, row);
  endInsertRows();
}

void GroupTreeModel::ReindexChannels(GroupRow& folder, int first) {
  const auto rows = static_cast<int>(folder.children.size());
  for (int row = first; row < rows; ++row) {
    channels_[folder.children[static_cast<std::size_t>(row)].id] = {&folder, row};
  }
}

void GroupTreeModel::Rename(const QModelIndex& row, std::string name) {
  if (ChildRow* const child = MutableChildAt(row)) {
    child->title = std::move(name);
  } else if (GroupAt(row) != nullptr) {
    groups_[static_cast<std::size_t>(row.row())]->name = std::move(name);
  } else {
    return;
  }
  emit dataChanged(row, row, {Qt::DisplayRole, NameRole, Qt::ToolTipRole});
}

int GroupTreeModel::Remove(const QModelIndex& row) {
  if (!row.isValid()) return 0;
  auto* const group = static_cast<GroupRow*>(row.internalPointer());
  return group == nullptr ? RemoveGroup(row.row()) : RemoveChild(*group, row.row());
}

int GroupTreeModel::RemoveChild(GroupRow& group, int row) {
  const auto child = group.children.begin() + row;
  const int unreadCount = child->unreadCount;
  beginRemoveRows(IndexOf(group), row, row);
  if (child->kind == RowKind::Channel) channels_.erase(child->id);
  group.children.erase(child);
  if (group.kind == RowKind::Folder) ReindexChannels(group);
  endRemoveRows();
  AddToUnread(group, -unreadCount);
  return unreadCount;
}

int GroupTreeModel::RemoveGroup(int row) {
  const auto group = groups_.begin() + row;
  const int unreadCount = (*group)->unreadCount;
  beginRemoveRows({}, row, row);
  for (const ChildRow& child : (*group)->children) channels_.erase(child.id);
  groups_.erase(group);
  endRemoveRows();
  return unreadCount;
}

}  // namespace feedloom
