#include "ui/tree/TreeRows.h"

#include <algorithm>
#include <utility>

#include "store/Rows.h"

namespace feedloom {

ChildRow ToRow(ChannelRow channel) {
  return {.kind = RowKind::Channel,
          .id = channel.id,
          .order = channel.order,
          .unreadCount = std::max(channel.unreadCount, 0),
          .state = channel.state,
          .title = std::move(channel.title),
          .xmlLink = std::move(channel.xmlLink)};
}

ChildRow ToRow(CabinetRow cabinet) {
  return {.kind = RowKind::Cabinet,
          .id = cabinet.id,
          .order = cabinet.order,
          .unreadCount = std::max(cabinet.unreadCount, 0),
          .title = std::move(cabinet.title)};
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
    SubscriptionFolder& folder = list.emplace_back();
    folder.name = group->name;
    for (const ChildRow& channel : group->children) {
      folder.channels.push_back({channel.title, channel.xmlLink});
    }
  }
  return list;
}

}  // namespace feedloom
