// The functions of GroupTreeModel that follow what other programs have changed in the store.
#include <unordered_set>

#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

template <typename Rows>
std::unordered_set<int> IdsOf(const Rows& rows) {
  std::unordered_set<int> ids;
  for (const auto& row : rows) ids.insert(row.id);
  return ids;
}

}  // namespace

// A channel moves before its old folder goes, and so keeps its row.
void GroupTreeModel::Update(const TreeContent& content) {
  if (groups_.empty()) return;
  UpdateFolders(content.folders);
  for (const ChannelRow& channel : content.channels) MoveChannel(channel.id, channel.folderId);
  RemoveRowsExcept(content);
  UpdateChannels(content.channels);
  UpdateCabinets(content.cabinets);
  SetChannelCounts(content.folders, content.channels);
  SetCabinetCounts(content.unreadInCabinets, content.cabinets);
}

void GroupTreeModel::UpdateFolders(const std::vector<FolderRow>& folders) {
  for (const FolderRow& folder : folders) {
    Insert(folder, Place::kByOrder);
    GroupRow& group = *FindFolder(folder.id);
    group.order = folder.order;
    RenameTo(IndexOf(group), folder.name);
  }
}

void GroupTreeModel::UpdateChannels(const std::vector<ChannelRow>& channels) {
  for (const ChannelRow& channel : channels) {
    Insert(channel, Place::kByOrder);
    RenameTo(FindChannel(channel.id), channel.title);
    SetAddress(channel.id, channel.xmlLink);
  }
}

void GroupTreeModel::SetAddress(int channelId, const std::string& address) {
  if (ChildRow* const row = MutableChildAt(FindChannel(channelId))) row->xmlLink = address;
}

void GroupTreeModel::UpdateCabinets(const std::vector<CabinetRow>& cabinets) {
  for (const CabinetRow& cabinet : cabinets) {
    Insert(cabinet, Place::kByOrder);
    RenameTo(FindCabinet(cabinet.id), cabinet.title);
  }
}

void GroupTreeModel::RenameTo(const QModelIndex& row, const std::string& stored) {
  const ChildRow* const child = ChildAt(row);
  const GroupRow* const group = GroupAt(row);
  const bool isOther = child != nullptr   ? child->title != stored
                       : group != nullptr ? group->name != stored
                                          : false;
  if (isOther) Rename(row, stored);
}

void GroupTreeModel::RemoveRowsExcept(const TreeContent& content) {
  const auto folders = IdsOf(content.folders);
  const auto cabinets = IdsOf(content.cabinets);
  std::unordered_set<int> channels;
  for (const ChannelRow& channel : content.channels) {
    if (folders.contains(channel.folderId)) channels.insert(channel.id);
  }
  for (int row = rowCount() - 1; row >= 0; --row) {
    const QModelIndex header = index(row, 0);
    const GroupRow& group = *GroupAt(header);
    const auto& kept = group.kind == RowKind::CabinetRoot ? cabinets : channels;
    for (int child = rowCount(header) - 1; child >= 0; --child) {
      const QModelIndex place = index(child, 0, header);
      if (!kept.contains(ChildAt(place)->id)) Remove(place);
    }
    if (group.kind == RowKind::Folder && !folders.contains(group.id)) Remove(header);
  }
}

int GroupTreeModel::UnreadInChannels() const {
  int sum = 0;
  for (const auto& [id, position] : channels_) {
    sum += position.group->children[static_cast<std::size_t>(position.row)].unreadCount;
  }
  return sum;
}

}  // namespace feedloom
