// Numbers of unread posts: 0 when none is unread, -1 after a failure. Any thread may call these
// functions; each call opens and closes the database and reports its own failures (Store.h).
#pragma once

#include <map>
#include <optional>
#include <span>

#include "store/Store.h"

namespace feedloom {

// All unread posts, also those whose channel is gone. Saved posts do not count.
int CountUnreadPosts(Store& store);

// The unread posts in the channels of folder `folderId`; for the group of cabinets the unread saved
// posts of all cabinets, whatever `folderId` is.
int CountUnreadInFolder(Store& store, int folderId, bool isCabinetGroup);

// The unread posts of the channel `id`, or of the cabinet `id`. Unlike the others, this function
// reports a database that cannot be opened twice.
int CountUnreadInItem(Store& store, int id, bool isCabinet);

// The unread posts of each of these channels by its id, by one SQL statement. A channel that is not
// in the store has none. nullopt after a failure.
using ChannelCounts = std::map<int, int>;
std::optional<ChannelCounts> CountUnreadInChannels(Store& store, std::span<const int> channelIds);

}  // namespace feedloom
