#include "ui/tree/SelectedPosts.h"

#include "skin/Keys.h"
#include "store/PostLists.h"

namespace feedloom {
namespace {

const char* WhenEmpty(RowKind kind) {
  if (HoldsScrapPosts(kind)) return kTextNoPostsInCabinet;
  return kind == RowKind::Folder ? kTextNoPostsInFolder : kTextNoPostsInChannel;
}

}  // namespace

std::optional<PostList> PostsOf(Store& store, const std::optional<RowKey>& row) {
  if (!row) return std::nullopt;
  PostList list;
  list.areScrapPosts = HoldsScrapPosts(row->kind);
  list.whenEmpty = WhenEmpty(row->kind);
  if (!LoadPosts(store, *row, list.posts)) return std::nullopt;
  return list;
}

}  // namespace feedloom
