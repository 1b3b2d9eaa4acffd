#include "ui/tree/RefreshEntries.h"

namespace feedloom {
namespace {

void AppendEntries(const GroupRow& group, std::vector<RefreshEntry>& entries) {
  if (group.kind != RowKind::Folder) return;
  for (const ChildRow& channel : group.children) {
    entries.push_back(RefreshEntryOf(channel, group.id));
  }
}

}  // namespace

RefreshEntry RefreshEntryOf(const ChildRow& channel, int folderId) {
  return {.channelId = channel.id,
          .folderId = folderId,
          .title = channel.title,
          .xmlLink = channel.xmlLink,
          .htmlLink = {},
          .type = "rss",
          .order = channel.order};
}

std::vector<RefreshEntry> RefreshEntriesOf(const GroupRow& group) {
  std::vector<RefreshEntry> entries;
  AppendEntries(group, entries);
  return entries;
}

std::vector<RefreshEntry> RefreshEntriesOf(const GroupRows& groups) {
  std::vector<RefreshEntry> entries;
  for (const auto& group : groups) AppendEntries(*group, entries);
  return entries;
}

}  // namespace feedloom
