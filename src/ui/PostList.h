#pragma once

#include <vector>

#include "store/Rows.h"

namespace feedloom {

// The posts that the list shows, all of one kind.
struct PostList {
  std::vector<PostRow> posts;  // in the order to show them
  bool areScrapPosts = false;  // saved posts of cabinets, not posts of channels
  bool wereSearched = false;   // found by a word: their number is shown
};

}  // namespace feedloom
