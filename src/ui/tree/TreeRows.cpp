#include "ui/tree/TreeRows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace feedloom {

ChildRow ToRow(ChannelRow channel) {
  channel.unreadCount = std::max(channel.unreadCount, 0);
  return {std::move(channel)};
}

ChildRow ToRow(CabinetRow cabinet) {
  ChildRow row = ToRow(
      ChannelRow{{.id = cabinet.id, .order = cabinet.order, .title = std::move(cabinet.title)},
                 cabinet.unreadCount});
  row.kind = RowKind::Cabinet;
  return row;
}

std::unique_ptr<GroupRow> ToRow(FolderRow folder) {
  return std::make_unique<GroupRow>(GroupRow{.kind = RowKind::Folder,
                                             .id = folder.id,
                                             .order = folder.order,
                                             .unreadCount = std::max(folder.unreadCount, 0),
                                             .name = std::move(folder.name)});
}

SubscriptionList SubscriptionsOf(const GroupRows& groups) {
  SubscriptionList list;
  for (const auto& group : groups) {
    if (group->kind == RowKind::CabinetRoot) break;
    list.push_back({group->name, ChannelsOf(*group)});
  }
  return list;
}

std::vector<Channel> ChannelsOf(const GroupRow& group) {
  if (group.kind != RowKind::Folder) return {};
  return {group.children.begin(), group.children.end()};
}

std::vector<Channel> ChannelsOf(const GroupRows& groups) {
  std::vector<Channel> all;
  for (const auto& group : groups) std::ranges::move(ChannelsOf(*group), std::back_inserter(all));
  return all;
}

}  // namespace feedloom
