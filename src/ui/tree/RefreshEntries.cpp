#include "ui/tree/RefreshEntries.h"

namespace feedloom {
namespace {

RefreshEntry EntryOf(const ChildRow& channel, int folderId) {
  return {.channelId = channel.id,
          .folderId = folderId,
          .title = channel.title,
          .xmlLink = channel.xmlLink,
          .htmlLink = {},
          .type = "rss",
          .order = channel.order};
}

}  // namespace

std::vector<RefreshEntry> RefreshEntriesOf(const GroupRows& groups) {
  std::vector<RefreshEntry> entries;
  for (const auto& group : groups) {
    if (group->kind != RowKind::Folder) continue;
    for (const ChildRow& channel : group->children) entries.push_back(EntryOf(channel, group->id));
  }
  return entries;
}

}  // namespace feedloom
