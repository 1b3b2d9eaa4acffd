#include "ui/tree/SelectedPosts.h"

#include "store/PostLists.h"

namespace feedloom {

std::optional<PostList> PostsOf(Store& store, const std::optional<RowKey>& row) {
  if (!row) return std::nullopt;
  PostList list;
  list.areScrapPosts = HoldsScrapPosts(row->kind);
  if (!LoadPosts(store, *row, list.posts)) return std::nullopt;
  return list;
}

}  // namespace feedloom
