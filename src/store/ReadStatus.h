// Marking posts read (status 1) or unread (0). Any thread may call these; each call opens and
// closes the database, and reports its own failures (Store.h); false after a failure.
//
// An empty list of ids addresses the whole table: pass one on purpose only.
#pragma once

#include <span>

#include "store/Store.h"

namespace feedloom {

bool MarkFoldersRead(Store& store, int status, std::span<const int> folderIds);
bool MarkChannelsRead(Store& store, int status, std::span<const int> channelIds);
bool MarkPostsRead(Store& store, int status, std::span<const int> postIds);
bool MarkScrapPostsRead(Store& store, int status, std::span<const int> scrapPostIds);
bool MarkCabinetsRead(Store& store, int status, std::span<const int> cabinetIds);
bool MarkAllScrapPostsRead(Store& store, int status);

}  // namespace feedloom
