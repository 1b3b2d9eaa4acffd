// Authors and categories of posts, in the table of share/post_details.sql. A database without that
// table keeps none.
#pragma once

#include <span>
#include <string>

#include "store/Connection.h"
#include "store/Rows.h"

namespace feedloom {

bool KeepsPostDetails(Connection& connection);

// The statement that keeps the details of these posts of the channel, once they are stored; empty
// when none has any. A row that there is stays. One statement for many posts, because a statement
// takes SQLite longer to read than to run.
std::string InsertDetailsStatement(int channelId, std::span<const NewPost* const> posts);

// Those of the post with this id and link; empty ones when there is none, and after a failure,
// which is reported. Any thread.
PostDetails FindPostDetails(Store& store, int postId, const std::string& link);

}  // namespace feedloom
