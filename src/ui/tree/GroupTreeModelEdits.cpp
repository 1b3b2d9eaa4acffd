// The functions of GroupTreeModel that add, move, rename and remove single rows.
#include <algorithm>
#include <tuple>
#include <utility>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

// The store's order: by order, then by id.
bool IsOrderedBefore(const ChildRow& a, const ChildRow& b) {
  return std::tie(a.order, a.id) < std::tie(b.order, b.id);
}

}  // namespace

GroupRow* GroupTreeModel::FindFolder(int folderId) const {
  const auto found = std::ranges::find_if(groups_, [&](const auto& group) {
    return group->kind == RowKind::Folder && group->id == folderId;
  });
  return found == groups_.end() ? nullptr : found->get();
}

void GroupTreeModel::AppendFolder(FolderRow folder) {
  if (groups_.empty() || FindFolder(folder.id) != nullptr) return;
  const auto row = static_cast<int>(groups_.size()) - 1;  // the cabinet root stays the last one
  beginInsertRows({}, row, row);
  groups_.insert(groups_.end() - 1, ToRow(std::move(folder)));
  endInsertRows();
}

void GroupTreeModel::AppendCabinet(CabinetRow cabinet) {
  if (groups_.empty() || FindCabinet(cabinet.id).isValid()) return;
  GroupRow& root = *groups_.back();
  const auto row = static_cast<int>(root.children.size());
  beginInsertRows(IndexOf(root), row, row);
  root.children.push_back(ToRow(std::move(cabinet)));
  endInsertRows();
}

bool GroupTreeModel::AppendChannel(ChannelRow channel) {
  GroupRow* const folder = FindFolder(channel.folderId);
  if (folder == nullptr || channels_.contains(channel.id)) return false;
  const auto row = static_cast<int>(folder->children.size());
  const int id = channel.id;
  const int unreadCount = channel.unreadCount;
  beginInsertRows(IndexOf(*folder), row, row);
  ChildRow child = ToRow(std::move(channel));
  child.unreadCount = 0;
  folder->children.push_back(std::move(child));
  channels_[id] = {folder, row};
  endInsertRows();
  SetChannelUnread(id, unreadCount);
  return true;
}

bool GroupTreeModel::MoveChannel(int channelId, int folderId) {
  const QModelIndex channel = FindChannel(channelId);
  GroupRow* const to = FindFolder(folderId);
  auto* const from = static_cast<GroupRow*>(channel.internalPointer());
  if (from == nullptr || to == nullptr || from == to) return false;
  const auto moved = from->children.begin() + channel.row();
  const auto place = std::ranges::upper_bound(to->children, *moved, IsOrderedBefore);
  beginMoveRows(IndexOf(*from), channel.row(), channel.row(), IndexOf(*to),
                static_cast<int>(place - to->children.begin()));
  const int unreadCount = moved->unreadCount;
  moved->folderId = folderId;
  to->children.insert(place, std::move(*moved));
  from->children.erase(moved);
  ReindexChannels(*from);
  ReindexChannels(*to);
  endMoveRows();
  AddToUnread(*from, -unreadCount);
  AddToUnread(*to, unreadCount);
  return true;
}

void GroupTreeModel::ReindexChannels(GroupRow& folder) {
  int row = 0;
  for (const ChildRow& channel : folder.children) channels_[channel.id] = {&folder, row++};
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
