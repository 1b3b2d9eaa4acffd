#include "exchange/OpmlExport.h"

#include <unordered_map>
#include <utility>

#include "exchange/OpmlText.h"
#include "store/Channels.h"
#include "store/Folders.h"

namespace feedloom {

std::optional<SubscriptionList> StoredSubscriptions(Store& store) {
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  if (!LoadFolderList(store, folders) || !LoadChannelList(store, channels)) return std::nullopt;
  SubscriptionList list;
  std::unordered_map<int, std::size_t> indexById;
  for (FolderRow& folder : folders) {
    indexById[folder.id] = list.size();
    list.push_back({std::move(folder.name)});
  }
  for (ChannelRow& channel : channels) {
    const auto folder = indexById.find(channel.folderId);
    if (folder == indexById.end()) continue;  // not shown in the tree either
    list[folder->second].channels.push_back(std::move(channel));
  }
  return list;
}

Failure WriteOpml(const Store& store, const std::string& path, const SubscriptionList& list) {
  const std::string now = FormatLocalTime(store.GetClock().Now(), "%Y-%m-%dT%H:%M:%S");
  return SaveFile(path, BuildOpml(list, store.TextCodePage(), now));
}

}  // namespace feedloom
