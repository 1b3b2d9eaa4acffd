#pragma once

#include <span>
#include <string>
#include <vector>

#include "store/Rows.h"

namespace feedloom {

// The contents of the post list: posts of channels, or saved posts of cabinets, or what a search in
// texts has found of both, each of which knows what it is.
struct PostList {
  std::vector<PostRow> posts = {};  // in display order
  bool areScrapPosts = false;       // saved posts only
  bool areSearchResults = false;    // results of a search; the list shows their number
  bool hasMore = false;             // the search has found more than these
  bool areFromWeb = false;          // of the web directory: nobody has read or not read them
  // The key of the text that the list shows if there are no posts, null for none, and the word that
  // stands for "%s" in it.
  const char* whenEmpty = nullptr;
  std::string word = {};
  // The query (search/TextQuery.h), in UTF-8, whose words are marked in the rows and in the pages
  // of the posts; empty for none.
  std::string marked = {};
};

// A list tells its rows apart by numbers of their own: of a saved post among posts, the negative of
// its number in the store.
inline int ListId(const PostRow& post) { return post.isSaved && post.id > 0 ? -post.id : post.id; }

// The numbers in the store of what stands in a list with the numbers `listed`; `areScrapPosts` is
// the list's.
PostIds StoredIds(std::span<const int> listed, bool areScrapPosts);

}  // namespace feedloom
