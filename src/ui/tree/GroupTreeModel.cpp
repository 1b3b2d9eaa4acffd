#include "ui/tree/GroupTreeModel.h"

#include <algorithm>
#include <optional>
#include <unordered_set>
#include <utility>

namespace feedloom {

GroupTreeModel::GroupTreeModel(CodePage codePage, RowTexts texts, QObject* parent)
    : QAbstractItemModel(parent), codePage_(codePage), texts_(std::move(texts)) {}

GroupTreeModel::~GroupTreeModel() = default;

void GroupTreeModel::Load(TreeContent content) {
  beginResetModel();
  groups_.clear();
  channels_.clear();
  FillGroups(std::move(content));
  endResetModel();
}

void GroupTreeModel::FillGroups(TreeContent content) {
  std::unordered_map<int, GroupRow*> folders;
  for (FolderRow& folder : content.folders) {
    const int id = folder.id;
    folders[id] = groups_.emplace_back(ToRow(std::move(folder))).get();
  }
  for (ChannelRow& channel : content.channels) {
    const auto folder = folders.find(channel.folderId);
    if (folder == folders.end()) continue;
    std::vector<ChildRow>& rows = folder->second->children;
    channels_[channel.id] = {folder->second, static_cast<int>(rows.size())};
    rows.push_back(ToRow(std::move(channel)));
  }
  auto cabinets =
      std::make_unique<GroupRow>(GroupRow{.kind = RowKind::CabinetRoot,
                                          .unreadCount = std::max(content.unreadInCabinets, 0),
                                          .name = std::move(content.cabinetTitle)});
  for (CabinetRow& cabinet : content.cabinets) {
    cabinets->children.push_back(ToRow(std::move(cabinet)));
  }
  groups_.push_back(std::move(cabinets));
}

const GroupRow* GroupTreeModel::GroupAt(const QModelIndex& index) const {
  if (!index.isValid() || index.internalPointer() != nullptr) return nullptr;
  return groups_[static_cast<std::size_t>(index.row())].get();
}

const ChildRow* GroupTreeModel::ChildAt(const QModelIndex& index) const {
  const auto* group = static_cast<const GroupRow*>(index.internalPointer());
  return group == nullptr ? nullptr : &group->children[static_cast<std::size_t>(index.row())];
}

std::optional<RowKey> GroupTreeModel::KeyOf(const QModelIndex& index) const {
  if (const GroupRow* const group = GroupAt(index)) return RowKey{group->kind, group->id};
  if (const ChildRow* const child = ChildAt(index)) return RowKey{child->kind, child->id};
  return std::nullopt;
}

ChildRow* GroupTreeModel::MutableChildAt(const QModelIndex& index) {
  return const_cast<ChildRow*>(ChildAt(index));
}

QModelIndex GroupTreeModel::FindChannel(int channelId) const {
  const auto place = channels_.find(channelId);
  return place == channels_.end() ? QModelIndex()
                                  : createIndex(place->second.row, 0, place->second.group);
}

QModelIndex GroupTreeModel::Find(const RowKey& key) const {
  if (key.kind == RowKind::Channel) return FindChannel(key.id);
  if (key.kind == RowKind::Cabinet) return FindCabinet(key.id);
  const GroupRow* const group =
      key.kind == RowKind::Folder || groups_.empty() ? FindFolder(key.id) : groups_.back().get();
  return group == nullptr ? QModelIndex() : IndexOf(*group);
}

QModelIndex GroupTreeModel::FindCabinet(int cabinetId) const {
  if (groups_.empty()) return {};
  GroupRow& root = *groups_.back();
  const auto cabinet = std::ranges::find(root.children, cabinetId, &ChildRow::id);
  if (cabinet == root.children.end()) return {};
  return createIndex(static_cast<int>(cabinet - root.children.begin()), 0, &root);
}

QModelIndex GroupTreeModel::IndexOf(const GroupRow& group) const {
  const auto found = std::ranges::find(groups_, &group, &std::unique_ptr<GroupRow>::get);
  return createIndex(static_cast<int>(found - groups_.begin()), 0);
}

int GroupTreeModel::SetChannelUnread(int channelId, int count) {
  const QModelIndex index = FindChannel(channelId);
  return index.isValid() && count >= 0 ? SetUnread(index, count) : 0;
}

// Emits one signal for all children of a group, as a view repaints after each signal.
void GroupTreeModel::ReportCounts(const GroupRow& group) {
  const QModelIndex header = IndexOf(group);
  emit dataChanged(header, header, {Qt::DisplayRole, UnreadRole});
  if (group.children.empty()) return;
  emit dataChanged(index(0, 0, header),
                   index(static_cast<int>(group.children.size()) - 1, 0, header),
                   {Qt::DisplayRole, UnreadRole});
}

void GroupTreeModel::SetChannelCounts(const std::vector<FolderRow>& folders,
                                      const std::vector<ChannelRow>& channels) {
  std::unordered_map<int, int> counts;
  for (const FolderRow& folder : folders) counts[folder.id] = folder.unreadCount;
  std::unordered_set<const GroupRow*> changed;
  for (const ChannelRow& channel : channels) {
    SetChannelState(channel.id, channel.state);
    const QModelIndex index = FindChannel(channel.id);
    ChildRow* const row = MutableChildAt(index);
    if (row == nullptr || channel.unreadCount < 0 || row->unreadCount == channel.unreadCount) {
      continue;
    }
    row->unreadCount = channel.unreadCount;
    changed.insert(static_cast<const GroupRow*>(index.internalPointer()));
  }
  for (const auto& group : groups_) {
    const auto count = counts.find(group->id);
    const bool isNamed = group->kind == RowKind::Folder && count != counts.end();
    if (isNamed && count->second >= 0 &&
        std::exchange(group->unreadCount, count->second) != count->second) {
      changed.insert(group.get());
    }
    if (changed.contains(group.get())) ReportCounts(*group);
  }
}

void GroupTreeModel::SetCabinetCounts(int unreadInCabinets,
                                      const std::vector<CabinetRow>& cabinets) {
  if (groups_.empty()) return;
  GroupRow& root = *groups_.back();
  if (unreadInCabinets >= 0) root.unreadCount = unreadInCabinets;
  for (const CabinetRow& cabinet : cabinets) {
    ChildRow* const row = MutableChildAt(FindCabinet(cabinet.id));
    if (row != nullptr && cabinet.unreadCount >= 0) row->unreadCount = cabinet.unreadCount;
  }
  ReportCounts(root);
}

void GroupTreeModel::RaiseCabinetUnread(int cabinetId) {
  if (groups_.empty()) return;
  GroupRow& root = *groups_.back();
  ++root.unreadCount;
  if (ChildRow* const cabinet = MutableChildAt(FindCabinet(cabinetId))) ++cabinet->unreadCount;
  ReportCounts(root);
}

void GroupTreeModel::LowerChannelUnread(int channelId) { LowerUnread(FindChannel(channelId)); }

void GroupTreeModel::LowerCabinetUnread(int cabinetId) { LowerUnread(FindCabinet(cabinetId)); }

void GroupTreeModel::LowerUnread(const QModelIndex& child) {
  const ChildRow* const row = ChildAt(child);
  if (row != nullptr && row->unreadCount > 0) SetUnread(child, row->unreadCount - 1);
}

int GroupTreeModel::SetUnread(const QModelIndex& child, int count) {
  ChildRow& row = *MutableChildAt(child);
  const int difference = count - row.unreadCount;
  if (difference == 0) return 0;
  row.unreadCount = count;
  emit dataChanged(child, child, {Qt::DisplayRole, UnreadRole});
  AddToUnread(*static_cast<GroupRow*>(child.internalPointer()), difference);
  return difference;
}

void GroupTreeModel::SetChannelNew(int channelId, bool isNew) {
  const QModelIndex index = FindChannel(channelId);
  ChildRow* const row = MutableChildAt(index);
  if (row == nullptr || row->isNew == isNew) return;
  row->isNew = isNew;
  emit dataChanged(index, index, {IsNewRole});
}

void GroupTreeModel::SetChannelNewByMessage(int channelId, bool isNew) {
  ChildRow* const row = MutableChildAt(FindChannel(channelId));
  if (row != nullptr && isNew) row->isAnimatedByMessage = true;
  SetChannelNew(channelId, isNew);
}

void GroupTreeModel::SetChannelState(int channelId, int state) {
  const QModelIndex index = FindChannel(channelId);
  ChildRow* const row = MutableChildAt(index);
  // A failure that follows another one may have a reason of its own.
  if (row == nullptr || (row->state == state && state >= 0)) return;
  row->state = state;
  emit dataChanged(index, index, {StateRole, Qt::ToolTipRole});
}

void GroupTreeModel::SetIcons(ChannelIcons icons) {
  icons_ = std::move(icons);
  for (const auto& group : groups_) {
    const QModelIndex header = IndexOf(*group);
    const int rows = rowCount(header);
    if (rows == 0) continue;
    emit dataChanged(index(0, 0, header), index(rows - 1, 0, header), {Qt::DecorationRole});
  }
}

void GroupTreeModel::AddToUnread(GroupRow& group, int difference) {
  group.unreadCount = std::max(group.unreadCount + difference, 0);
  const QModelIndex header = IndexOf(group);
  emit dataChanged(header, header, {Qt::DisplayRole, UnreadRole});
}

QModelIndex GroupTreeModel::FindUnread(const QModelIndex& from, bool forward) const {
  const int step = forward ? 1 : -1;
  const auto groupCount = static_cast<int>(groups_.size());
  int group = forward ? 0 : groupCount - 1;
  std::optional<int> row;  // where to begin in the group; nullopt: at its first or last child
  if (from.isValid()) {
    const QModelIndex header = parent(from);
    group = header.isValid() ? header.row() : from.row() + step;
    if (header.isValid()) row = from.row() + step;
  }
  for (; group >= 0 && group < groupCount; group += step, row.reset()) {
    const GroupRow& rows = *groups_[static_cast<std::size_t>(group)];
    const auto count = static_cast<int>(rows.children.size());
    for (int child = row.value_or(forward ? 0 : count - 1); child >= 0 && child < count;
         child += step) {
      if (rows.children[static_cast<std::size_t>(child)].unreadCount > 0) {
        return index(child, 0, index(group, 0));
      }
    }
  }
  return {};
}

QModelIndex GroupTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  if (!parent.isValid()) return createIndex(row, column);
  return createIndex(row, column, groups_[static_cast<std::size_t>(parent.row())].get());
}

QModelIndex GroupTreeModel::parent(const QModelIndex& child) const {
  const auto* group = static_cast<const GroupRow*>(child.internalPointer());
  return group == nullptr ? QModelIndex() : IndexOf(*group);
}

int GroupTreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(groups_.size());
  const GroupRow* const group = GroupAt(parent);
  return group == nullptr ? 0 : static_cast<int>(group->children.size());
}

int GroupTreeModel::columnCount(const QModelIndex&) const { return 1; }

Qt::ItemFlags GroupTreeModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
  if (GroupAt(index) != nullptr) return flags | Qt::ItemIsDropEnabled;
  const bool isCabinet = ChildAt(index)->kind == RowKind::Cabinet;
  return flags | Qt::ItemNeverHasChildren | (isCabinet ? Qt::ItemIsDropEnabled : Qt::NoItemFlags);
}

QVariant GroupTreeModel::data(const QModelIndex& index, int role) const {
  if (const GroupRow* const group = GroupAt(index)) return GroupData(*group, role);
  if (const ChildRow* const child = ChildAt(index)) return ChildData(*child, role);
  return {};
}

}  // namespace feedloom
