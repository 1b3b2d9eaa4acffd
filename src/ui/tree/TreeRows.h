// What the tree holds, as plain records: groups, and the rows under them. Texts are in the module's
// code page.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "exchange/Subscriptions.h"

namespace feedloom {

struct CabinetRow;
struct ChannelRow;
struct FolderRow;

enum class RowKind { Folder, CabinetRoot, Channel, Cabinet };

constexpr bool IsGroup(RowKind kind) {
  return kind == RowKind::Folder || kind == RowKind::CabinetRoot;
}

// A channel of a folder, or a cabinet of the cabinet root.
struct ChildRow {
  RowKind kind = RowKind::Channel;
  int id = 0;
  int order = 0;
  int unreadCount = 0;
  int state = 0;       // of a channel: below 0 after a refresh that failed
  bool isNew = false;  // of a channel: posts have arrived that the user has not looked at
  bool isAnimatedByMessage = false;  // of a channel: a message brought the new mark's animation
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

// A group keeps its address, whatever happens to the others.
using GroupRows = std::vector<std::unique_ptr<GroupRow>>;

// What the store has, as a row; a negative count (the store could not tell) is 0.
ChildRow ToRow(ChannelRow channel);
ChildRow ToRow(CabinetRow cabinet);
std::unique_ptr<GroupRow> ToRow(FolderRow folder);

// The folders with their channels in the order of the rows; the cabinet root, and what stands
// behind it, is not among them.
SubscriptionList SubscriptionsOf(const GroupRows& groups);

}  // namespace feedloom
