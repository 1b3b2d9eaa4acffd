#include "ctl/Selection.h"

#include <fmt/core.h>

#include <algorithm>

#include "ctl/Output.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/Posts.h"

namespace feedloom {
namespace {

// `load` appends all rows; `kind` is what the user calls one.
template <typename Row>
std::optional<Row> Find(Store& store, bool (*load)(Store&, std::vector<Row>&), const char* kind,
                        int id) {
  std::vector<Row> rows;
  if (!load(store, rows)) return std::nullopt;
  const auto found = std::ranges::find(rows, id, &Row::id);
  if (found != rows.end()) return *found;
  PrintError(fmt::format("there is no {} {}", kind, id));
  return std::nullopt;
}

}  // namespace

std::optional<FolderRow> FindFolder(Store& store, int id) {
  return Find(store, LoadFolderList, "folder", id);
}

std::optional<ChannelRow> FindChannel(Store& store, int id) {
  return Find(store, LoadChannelList, "channel", id);
}

std::optional<CabinetRow> FindCabinet(Store& store, int id) {
  return Find(store, LoadCabinetList, "cabinet", id);
}

std::optional<PostRow> FindNamedPost(Store& store, int id) {
  std::vector<PostRow> posts;
  if (!FindPost(store, id, posts)) return std::nullopt;
  if (!posts.empty()) return std::move(posts.front());
  PrintError(fmt::format("there is no post {}", id));
  return std::nullopt;
}

}  // namespace feedloom
