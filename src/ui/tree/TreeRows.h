// The records of the tree: groups and their child rows. Texts are in the module's code page.
#pragma once

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "exchange/Subscriptions.h"
#include "store/RowKey.h"
#include "store/Rows.h"

namespace feedloom {

// A channel of a folder, or a cabinet of the cabinet root, which has a title and no addresses.
struct ChildRow : ChannelRow {
  RowKind kind = RowKind::Channel;
  // Of a channel:
  bool isNew = false;                // posts arrived since the user last selected it
  bool isAnimatedByMessage = false;  // the mark is NewPostAnimation::kByMessage
};

struct GroupRow {
  RowKind kind = RowKind::Folder;
  int id = 0;     // of a folder
  int order = 0;  // of a folder; negative: protected
  int unreadCount = 0;
  std::string name = {};
  std::vector<ChildRow> children = {};
};

// Whether `a` stands before `b` in the store's order of channels and cabinets.
inline bool IsOrderedBefore(const ChildRow& a, const ChildRow& b) {
  return std::tie(a.order, a.id) < std::tie(b.order, b.id);
}

// Whether the user can give the group another place: a folder that is not protected.
inline bool IsMovable(const GroupRow& group) {
  return group.kind == RowKind::Folder && group.order >= 0;
}

// Pointers, because indexes of the model hold a group's address while other groups come and go.
using GroupRows = std::vector<std::unique_ptr<GroupRow>>;

// Convert a row of the store. A negative count (the store could not read it) becomes 0.
ChildRow ToRow(ChannelRow channel);
ChildRow ToRow(CabinetRow cabinet);
std::unique_ptr<GroupRow> ToRow(FolderRow folder);

// The folders with their channels in the order of the rows, without the cabinet root and any group
// behind it.
SubscriptionList SubscriptionsOf(const GroupRows& groups);

// The channels of all groups, or of one group, in the order of the rows. The cabinet root has none.
std::vector<Channel> ChannelsOf(const GroupRows& groups);
std::vector<Channel> ChannelsOf(const GroupRow& group);

}  // namespace feedloom
