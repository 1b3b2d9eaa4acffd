#include "ui/tree/TreeLoader.h"

#include <algorithm>
#include <utility>

#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Counts.h"
#include "store/Folders.h"

namespace feedloom {

std::optional<TreeContent> ReadTree(Store& store) {
  TreeContent content;
  const bool areFoldersRead = LoadFolderList(store, content.folders);
  if (!areFoldersRead || !ReadTreeWithoutFolders(store, content)) return std::nullopt;
  return content;
}

bool ReadTreeWithoutFolders(Store& store, TreeContent& content) {
  const bool areChannelsRead = LoadChannelList(store, content.channels);
  content.unreadInCabinets = CountUnreadInFolder(store, 0, true);
  const bool areCabinetsRead = LoadCabinetList(store, content.cabinets);
  return areChannelsRead && content.unreadInCabinets >= 0 && areCabinetsRead;
}

std::optional<ChannelRow> ReadChannel(Store& store, int channelId) {
  std::vector<ChannelRow> stored;
  LoadChannelList(store, stored);
  const auto channel = std::ranges::find(stored, channelId, &ChannelRow::id);
  if (channel == stored.end()) return std::nullopt;
  return std::move(*channel);
}

void AppendMissingFolder(Store& store, int folderId, GroupTreeModel& model) {
  const auto isThere = [&](const auto& group) {
    return group->kind == RowKind::Folder && group->id == folderId;
  };
  if (std::ranges::any_of(model.Groups(), isThere)) return;
  std::vector<FolderRow> folders;
  LoadFolderList(store, folders);
  const auto folder = std::ranges::find(folders, folderId, &FolderRow::id);
  if (folder == folders.end()) return;
  folder->unreadCount = 0;  // counts follow when its channels get their rows
  model.AppendFolder(std::move(*folder));
}

void ReadChannelCounts(Store& store, GroupTreeModel& model) {
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  if (!LoadFolderList(store, folders) || !LoadChannelList(store, channels)) return;
  model.SetChannelCounts(folders, channels);
}

void ReadCabinetCounts(Store& store, GroupTreeModel& model) {
  std::vector<CabinetRow> cabinets;
  const int unread = CountUnreadInFolder(store, 0, true);
  if (LoadCabinetList(store, cabinets)) model.SetCabinetCounts(unread, cabinets);
}

}  // namespace feedloom
