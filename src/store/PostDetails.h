// Authors and categories of posts, in the table of share/post_details.sql. A database without that
// table keeps none.
#pragma once

#include <string>
#include <vector>

#include "store/Connection.h"
#include "store/Rows.h"

namespace feedloom {

bool KeepsPostDetails(Connection& connection);

// The companions of the statements that insert `posts`, one post each.
Companions DetailsOf(const std::vector<const NewPost*>& posts);

// Those of the post with this id and link; empty ones when there is none, and after a failure,
// which is reported. Any thread.
PostDetails FindPostDetails(Store& store, int postId, const std::string& link);

}  // namespace feedloom
