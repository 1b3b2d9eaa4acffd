#pragma once

#include <string>
#include <vector>

#include "store/Rows.h"

namespace feedloom {

// The contents of the post list: posts of channels, or saved posts of cabinets.
struct PostList {
  std::vector<PostRow> posts = {};  // in display order
  bool areScrapPosts = false;       // saved posts
  bool areSearchResults = false;    // results of a search; the list shows their number
  bool areFromWeb = false;          // of the web directory: nobody has read or not read them
  // The key of the text that the list shows if there are no posts, null for none, and the word that
  // stands for "%s" in it.
  const char* whenEmpty = nullptr;
  std::string word = {};
  // The query (search/TextQuery.h), in UTF-8, whose words are marked in the rows and in the pages
  // of the posts; empty for none.
  std::string marked = {};
};

}  // namespace feedloom
