// Posts: the items of channels, and the saved ones in cabinets. Any thread may call these; each
// call reports its own failures (Store.h), and opens and closes the database unless it is handed a
// connection. Loaders return false after a failure, with `out` filled as far as they came.
#pragma once

#include <span>
#include <stop_token>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

class Connection;

// A container's own fields, and its posts from the newest to the oldest, then by title. The two
// loaders of several containers read the fields of the first one and append all posts to one list,
// grouped by the container's order; there each post's ownerId tells its container.
bool LoadChannelWithPosts(Store& store, int channelId, ChannelWithPosts& out);
bool LoadFolderWithPosts(Store& store, int folderId, ChannelWithPosts& out);
bool LoadCabinetWithPosts(Store& store, int cabinetId, CabinetWithPosts& out);
bool LoadAllCabinetsWithPosts(Store& store, CabinetWithPosts& out);

// Appends the post with this id, if there is one; false after a failure.
bool FindPost(Store& store, int postId, std::vector<PostRow>& out);

// Adds those of `record`'s posts whose link its channel does not hold yet, in list order, unread
// and dated now; the title, date and text of a link that is stored already stay as they are. A post
// that fails is reported and the next one is tried. Ends early when `stop` is requested.
struct InsertedPosts {
  int count = 0;         // of posts that were not there
  bool complete = true;  // none failed, and there was no stop
};
InsertedPosts InsertChannelPosts(Connection& connection, const ChannelRecord& record,
                                 std::stop_token stop = {});

// False after a failure. An empty list of ids deletes every row: pass one on purpose only.
bool DeletePosts(Store& store, std::span<const int> postIds);
bool DeleteScrapPosts(Store& store, std::span<const int> scrapPostIds);

// Deletes the posts that were stored `days` days ago or longer, whatever date their feed gave them.
// Saved posts stay. False after a failure.
bool DeleteOldPosts(Store& store, int days);

}  // namespace feedloom
