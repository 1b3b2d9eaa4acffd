#include "ui/tree/SelectedPosts.h"

#include <type_traits>
#include <utility>

#include "store/Posts.h"

namespace feedloom {
namespace {

// Runs one of the loaders. The container type tells whether its posts are saved ones.
template <typename Container>
bool LoadInto(PostList& list, bool (*load)(Store&, int, Container&), Store& store, int id) {
  Container container;
  const bool loaded = load(store, id, container);
  list.posts = std::move(container.posts);
  list.areScrapPosts = std::is_same_v<Container, CabinetWithPosts>;
  return loaded;
}

bool LoadAllCabinets(Store& store, int /*id*/, CabinetWithPosts& out) {
  return LoadAllCabinetsWithPosts(store, out);
}

bool LoadPosts(Store& store, RowKind kind, int id, PostList& list) {
  switch (kind) {
    case RowKind::Folder:
      return LoadInto(list, LoadFolderWithPosts, store, id);
    case RowKind::CabinetRoot:
      return LoadInto(list, LoadAllCabinets, store, id);
    case RowKind::Channel:
      return LoadInto(list, LoadChannelWithPosts, store, id);
    case RowKind::Cabinet:
      return LoadInto(list, LoadCabinetWithPosts, store, id);
  }
  return false;
}

}  // namespace

std::optional<PostList> PostsOf(Store& store, const std::optional<RowKey>& row) {
  PostList list;
  if (!row || !LoadPosts(store, row->kind, row->id, list)) return std::nullopt;
  return list;
}

}  // namespace feedloom
