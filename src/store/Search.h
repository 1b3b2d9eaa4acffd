// Find posts by their title or their ids, and today's unread posts. All functions append to `out`,
// newest first, posts of the same date by title, and return false after a failure. Any thread may
// call them; each call opens and closes the database and reports its own failures (Store.h).
//
// `word`, in the module's code page, may stand anywhere in the title. ASCII letters match in either
// case, "%" matches any run of characters and "_" any one character.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

bool SearchPosts(Store& store, std::string_view word, std::vector<PostRow>& out);
bool SearchChannelPosts(Store& store, int channelId, std::string_view word,
                        std::vector<PostRow>& out);
bool SearchFolderPosts(Store& store, int folderId, std::string_view word,
                       std::vector<PostRow>& out);
bool SearchCabinetPosts(Store& store, int cabinetId, std::string_view word,
                        std::vector<PostRow>& out);
bool SearchScrapPosts(Store& store, std::string_view word, std::vector<PostRow>& out);

// The unread posts whose publication date is today in the machine's time zone, with `ownerId` set.
bool LoadTodayUnread(Store& store, std::vector<PostRow>& out);
bool LoadFolderTodayUnread(Store& store, int folderId, std::vector<PostRow>& out);

// The posts with these ids that are still there, with `ownerId` set. FindUnreadPosts leaves out
// those that were read, and sets only `id`, `ownerId`, `ownerTitle` and
// `title`.
bool LoadPostsWithIds(Store& store, std::span<const int> ids, std::vector<PostRow>& out);
bool FindUnreadPosts(Store& store, std::span<const int> ids, std::vector<PostRow>& out);

}  // namespace feedloom
