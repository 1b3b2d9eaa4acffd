#include "ui/PostList.h"

namespace feedloom {

PostIds StoredIds(std::span<const int> listed, bool areScrapPosts) {
  if (areScrapPosts) return {.saved = {listed.begin(), listed.end()}};
  PostIds ids;
  for (const int id : listed) id < 0 ? ids.saved.push_back(-id) : ids.posts.push_back(id);
  return ids;
}

}  // namespace feedloom
