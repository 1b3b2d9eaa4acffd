// Posts by their title, and today's unread ones. Any thread may call these; each call opens and
// closes the database, and reports its own failures (Store.h). All append to `out`, newest first,
// then by title; false after a failure.
//
// The word matches anywhere in the title: ASCII letters without regard to case, "%" any run of
// characters, "_" any one.
#pragma once

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

// Unread posts whose publication date is today in the machine's time zone; their ownerId is set.
bool LoadTodayUnread(Store& store, std::vector<PostRow>& out);
bool LoadFolderTodayUnread(Store& store, int folderId, std::vector<PostRow>& out);

}  // namespace feedloom
