// The records of the tree: groups and their child rows. Texts are in the module's code page.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "exchange/Subscriptions.h"
#include "store/RowKey.h"

namespace feedloom {

struct CabinetRow;
struct ChannelRow;
struct FolderRow;

// A channel of a folder, or a cabinet of the cabinet root.
struct ChildRow {
  RowKind kind = RowKind::Channel;
  int id = 0;
  int order = 0;
  int unreadCount = 0;
  int state = 0;       // of a channel: the last ChannelResult, negative after a failed refresh
  bool isNew = false;  // of a channel: posts arrived since the user last selected it
  bool isAnimatedByMessage = false;  // of a channel: the mark is NewPostAnimation::kByMessage
  std::string title = {};
  std::string xmlLink = {};  // of a channel: the feed's address
};

struct GroupRow {
  RowKind kind = RowKind::Folder;
  int id = 0;     // of a folder
  int order = 0;  // of a folder; negative: protected
  int unreadCount = 0;
  std::string name = {};
  std::vector<ChildRow> children = {};
};

// Pointers, because indexes of the model hold a group's address while other groups come and go.
using GroupRows = std::vector<std::unique_ptr<GroupRow>>;

// Convert a row of the store. A negative count (the store could not read it) becomes 0.
ChildRow ToRow(ChannelRow channel);
ChildRow ToRow(CabinetRow cabinet);
std::unique_ptr<GroupRow> ToRow(FolderRow folder);

// The folders with their channels in the order of the rows, without the cabinet root and any group
// behind it.
SubscriptionList SubscriptionsOf(const GroupRows& groups);

}  // namespace feedloom
