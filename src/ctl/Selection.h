// Channels, folders and cabinets that a command names by their ids.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// The rows with these ids, in the ids' order; none, after a message, when one does not exist or the
// store failed. One statement, however many ids.
std::optional<std::vector<FolderRow>> FindFolders(Store& store, std::span<const int> ids);
std::optional<std::vector<ChannelRow>> FindChannels(Store& store, std::span<const int> ids);

// The row with this id; none, after a message, when there is no such row or the store failed.
std::optional<FolderRow> FindFolder(Store& store, int id);
std::optional<ChannelRow> FindChannel(Store& store, int id);
std::optional<CabinetRow> FindCabinet(Store& store, int id);
std::optional<PostRow> FindNamedPost(Store& store, int id);

}  // namespace feedloom
