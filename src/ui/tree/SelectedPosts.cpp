#include "ui/tree/SelectedPosts.h"

#include <type_traits>
#include <utility>

#include "store/Posts.h"
#include "ui/tree/GroupTreeModel.h"

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

std::optional<PostList> PostsOf(Store& store, const GroupTreeModel& model, const QModelIndex& row) {
  PostList list;
  const GroupRow* const group = model.GroupAt(row);
  const ChildRow* const child = model.ChildAt(row);
  const bool loaded = (group != nullptr && LoadPosts(store, group->kind, group->id, list)) ||
                      (child != nullptr && LoadPosts(store, child->kind, child->id, list));
  if (!loaded) return std::nullopt;
  return list;
}

}  // namespace feedloom
