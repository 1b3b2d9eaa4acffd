// Finds the rows that a command names by their ids.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Return the rows with these ids, in the order of `ids`, with one SQL statement. When one does not
// exist or the store fails, print an error and return nothing.
std::optional<std::vector<FolderRow>> FindFolders(Store& store, std::span<const int> ids);
std::optional<std::vector<ChannelRow>> FindChannels(Store& store, std::span<const int> ids);

// Return the row with this id. When there is none or the store fails, print an error and return
// nothing.
std::optional<FolderRow> FindFolder(Store& store, int id);
std::optional<ChannelRow> FindChannel(Store& store, int id);
std::optional<CabinetRow> FindCabinet(Store& store, int id);
std::optional<PostRow> FindNamedPost(Store& store, int id);

}  // namespace feedloom
