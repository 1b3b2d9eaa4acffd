// Operations on posts, the items of channels, and on saved posts in cabinets. Texts are in the
// module's code page. Any thread may call these functions; each call reports its own failures
// (Store.h), and opens and closes the database unless it is given a connection. A Load function
// returns false after a failure; `out` then holds what was read before.
#pragma once

#include <span>
#include <stop_token>
#include <vector>

#include "store/Connection.h"
#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Load a container's own fields and its posts, newest first, posts of the same date by title. The
// two functions that load several containers read the fields of the first container and append the
// posts of all of them, container by container. Each post's `ownerId` is the id of its container.
bool LoadChannelWithPosts(Store& store, int channelId, ChannelWithPosts& out);
bool LoadFolderWithPosts(Store& store, int folderId, ChannelWithPosts& out);
bool LoadCabinetWithPosts(Store& store, int cabinetId, CabinetWithPosts& out);
bool LoadAllCabinetsWithPosts(Store& store, CabinetWithPosts& out);

// Appends the post with this id to `out`, if there is one. Returns false after a failure.
bool FindPost(Store& store, int postId, std::vector<PostRow>& out);

// Appends those of these posts, or saved posts, that there are, newest first. `ids` is not empty.
// Returns false after a failure.
bool FindPosts(Store& store, std::span<const int> ids, bool areScrapPosts,
               std::vector<PostRow>& out);

// Adds the posts of `record` to its channel, in their order, unread and with the present time as
// their creation date. A post whose link the channel holds already is left out; the stored one is
// not changed. So is one whose link is stored as the feed writes it. Authors and categories are
// kept where the database has the table for them. When a post fails, the next one is tried. The
// posts are committed some fifty at a time. Returns the number of those that are new in the store,
// and of those that are missing from it: they failed, or `stop` was requested before them.
Changes InsertChannelPosts(Connection& connection, const ChannelRecord& record,
                           std::stop_token stop = {});

// Return false after a failure. An empty list of ids deletes every row of the table.
bool DeletePosts(Store& store, std::span<const int> postIds);
bool DeleteScrapPosts(Store& store, std::span<const int> scrapPostIds);

// Deletes the posts that were stored `days` days ago or earlier; the date that the feed gave them
// does not matter. Saved posts stay. Returns how many there were, and nothing after a failure.
std::optional<int> DeleteOldPosts(Store& store, int days);

}  // namespace feedloom
