#include "exchange/OpmlExport.h"

#include <unordered_map>
#include <utility>

#include "exchange/OpmlText.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "text/Text.h"

namespace feedloom {
namespace {

void LeaveOutFiles(SubscriptionList& list) {
  for (SubscriptionFolder& folder : list) {
    std::erase_if(folder.channels, [](const Channel& channel) {
      return EqualsIgnoringAsciiCase(channel.xmlLink.substr(0, 5), "file:");
    });
  }
}

}  // namespace

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

OpmlExport ExportSubscriptions(const Store& store, SubscriptionList list, bool isLenient) {
  if (isLenient) LeaveOutFiles(list);
  const OpmlEscaping escaping = isLenient ? OpmlEscaping::Everything : OpmlEscaping::AmpersandOnly;
  const CodePage codePage = store.TextCodePage();
  OpmlExport result{
      .opml = BuildOpml(list, codePage,
                        FormatLocalTime(store.GetClock().Now(), "%Y-%m-%dT%H:%M:%S"), escaping),
      .folders = static_cast<int>(list.size()),
      .channels = CountChannels(list)};
  result.check = CheckOpml(result.opml, list, codePage, escaping);
  return result;
}

}  // namespace feedloom
