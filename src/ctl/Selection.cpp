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

// Returns the rows of `ids` out of those that `load` appends. `kind` names a row in the error.
template <typename Row>
std::optional<std::vector<Row>> Find(Store& store, bool (*load)(Store&, std::vector<Row>&),
                                     const char* kind, std::span<const int> ids) {
  std::vector<Row> rows;
  if (!load(store, rows)) return std::nullopt;
  std::vector<Row> wanted;
  for (const int id : ids) {
    const auto found = std::ranges::find(rows, id, &Row::id);
    if (found == rows.end()) {
      PrintError(fmt::format("there is no {} {}", kind, id));
      return std::nullopt;
    }
    wanted.push_back(*found);
  }
  return wanted;
}

template <typename Row>
std::optional<Row> Only(std::optional<std::vector<Row>> rows) {
  return rows ? std::optional(std::move(rows->front())) : std::nullopt;
}

}  // namespace

std::optional<std::vector<FolderRow>> FindFolders(Store& store, std::span<const int> ids) {
  return Find(store, LoadFolderList, "folder", ids);
}

std::optional<std::vector<ChannelRow>> FindChannels(Store& store, std::span<const int> ids) {
  return Find(store, LoadChannelList, "channel", ids);
}

std::optional<FolderRow> FindFolder(Store& store, int id) {
  return Only(FindFolders(store, {&id, 1}));
}

std::optional<ChannelRow> FindChannel(Store& store, int id) {
  return Only(FindChannels(store, {&id, 1}));
}

std::optional<CabinetRow> FindCabinet(Store& store, int id) {
  return Only(Find(store, LoadCabinetList, "cabinet", {&id, 1}));
}

std::optional<PostRow> FindNamedPost(Store& store, int id) {
  std::vector<PostRow> posts;
  if (!FindPost(store, id, posts)) return std::nullopt;
  if (!posts.empty()) return std::move(posts.front());
  PrintError(fmt::format("there is no post {}", id));
  return std::nullopt;
}

}  // namespace feedloom
