// Mark posts as read (status 1) or unread (status 0). Any thread may call these functions; each
// call opens and closes the database, reports its own failures (Store.h) and returns false after
// one.
//
// An empty list of ids stands for all rows of the table.
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
