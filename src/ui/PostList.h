#pragma once

#include <vector>

#include "store/Rows.h"

namespace feedloom {

// The contents of the post list: posts of channels, or saved posts of cabinets.
struct PostList {
  std::vector<PostRow> posts = {};  // in display order
  bool areScrapPosts = false;       // saved posts
  bool areSearchResults = false;    // results of a search; the list shows their number
};

}  // namespace feedloom
