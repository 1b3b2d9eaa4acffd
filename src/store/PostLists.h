// What a row's kind means for the posts that it holds: each function runs the operation of Posts.h,
// Search.h or ReadStatus.h for the row. They return false after a failure. Any thread may call
// them; each call opens and closes the database and reports its own failures (Store.h).
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "store/RowKey.h"
#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Set `out` to the row's posts, or append those whose title holds `word`, as Search.h has it.
bool LoadPosts(Store& store, const RowKey& row, std::vector<PostRow>& out);
bool SearchPosts(Store& store, const RowKey& row, std::string_view word, std::vector<PostRow>& out);

// Mark as read (status 1) or unread (status 0): all posts of the row; the posts, or saved posts,
// with these ids.
bool MarkRead(Store& store, const RowKey& row, int status);
bool MarkRead(Store& store, const PostIds& posts, int status);

// Delete the posts with these ids, or append to `out` those of them that there are, posts before
// saved ones and newest first. Where there are no ids, nothing happens.
bool DeletePosts(Store& store, const PostIds& posts);
bool FindPosts(Store& store, const PostIds& posts, std::vector<PostRow>& out);

}  // namespace feedloom
