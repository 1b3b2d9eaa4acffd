// How many posts are unread. Any thread may call these; each call opens and closes the database,
// and reports its own failures (Store.h). 0 when nothing is unread, -1 after a failure.
#pragma once

#include "store/Store.h"

namespace feedloom {

// In all channels and in none: every post of the store.
int CountUnreadPosts(Store& store);

// In the channels of folder `folderId`, or in all cabinets together (the id is not looked at).
int CountUnreadInFolder(Store& store, int folderId, bool isCabinetGroup);

// In one channel or one cabinet. Reports twice when the database cannot be opened.
int CountUnreadInItem(Store& store, int id, bool isCabinet);

}  // namespace feedloom
