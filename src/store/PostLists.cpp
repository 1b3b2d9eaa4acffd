#include "store/PostLists.h"

#include <utility>

#include "store/Posts.h"
#include "store/ReadStatus.h"
#include "store/Search.h"

namespace feedloom {
namespace {

template <typename Container>
bool TakePosts(Store& store, bool (*load)(Store&, int, Container&), int id,
               std::vector<PostRow>& out) {
  Container container;
  const bool loaded = load(store, id, container);
  out = std::move(container.posts);
  return loaded;
}

bool LoadAllCabinets(Store& store, int /*id*/, CabinetWithPosts& out) {
  return LoadAllCabinetsWithPosts(store, out);
}

// Runs the operation for the posts and for the saved posts, if there are any. False when one fails.
template <typename Operation>
bool OfEach(const PostIds& posts, Operation operation) {
  const bool isDone = posts.posts.empty() || operation(std::span<const int>(posts.posts), false);
  return (posts.saved.empty() || operation(std::span<const int>(posts.saved), true)) && isDone;
}

}  // namespace

bool LoadPosts(Store& store, const RowKey& row, std::vector<PostRow>& out) {
  switch (row.kind) {
    case RowKind::Folder:
      return TakePosts(store, LoadFolderWithPosts, row.id, out);
    case RowKind::CabinetRoot:
      return TakePosts(store, LoadAllCabinets, row.id, out);
    case RowKind::Channel:
      return TakePosts(store, LoadChannelWithPosts, row.id, out);
    case RowKind::Cabinet:
      return TakePosts(store, LoadCabinetWithPosts, row.id, out);
  }
  return false;
}

bool SearchPosts(Store& store, const RowKey& row, std::string_view word,
                 std::vector<PostRow>& out) {
  switch (row.kind) {
    case RowKind::Folder:
      return SearchFolderPosts(store, row.id, word, out);
    case RowKind::CabinetRoot:
      return SearchScrapPosts(store, word, out);
    case RowKind::Channel:
      return SearchChannelPosts(store, row.id, word, out);
    case RowKind::Cabinet:
      return SearchCabinetPosts(store, row.id, word, out);
  }
  return false;
}

bool MarkRead(Store& store, const RowKey& row, int status) {
  switch (row.kind) {
    case RowKind::Folder:
      return MarkFoldersRead(store, status, {&row.id, 1});
    case RowKind::CabinetRoot:
      return MarkAllScrapPostsRead(store, status);
    case RowKind::Channel:
      return MarkChannelsRead(store, status, {&row.id, 1});
    case RowKind::Cabinet:
      return MarkCabinetsRead(store, status, {&row.id, 1});
  }
  return false;
}

bool MarkRead(Store& store, const PostIds& posts, int status) {
  return OfEach(posts, [&](std::span<const int> ids, bool areSaved) {
    return areSaved ? MarkScrapPostsRead(store, status, ids) : MarkPostsRead(store, status, ids);
  });
}

bool DeletePosts(Store& store, const PostIds& posts) {
  return OfEach(posts, [&](std::span<const int> ids, bool areSaved) {
    return areSaved ? DeleteScrapPosts(store, ids) : DeletePosts(store, ids);
  });
}

bool FindPosts(Store& store, const PostIds& posts, std::vector<PostRow>& out) {
  return OfEach(posts, [&](std::span<const int> ids, bool areSaved) {
    const std::size_t first = out.size();
    const bool isDone = FindPosts(store, ids, areSaved, out);
    for (PostRow& post : std::span(out).subspan(first)) post.isSaved = areSaved;
    return isDone;
  });
}

}  // namespace feedloom
