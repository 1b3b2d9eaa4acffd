// Channels, folders and cabinets that a command names by their ids.
#pragma once

#include <optional>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// The row with this id; none, after a message, when there is no such row or the store failed.
std::optional<FolderRow> FindFolder(Store& store, int id);
std::optional<ChannelRow> FindChannel(Store& store, int id);
std::optional<CabinetRow> FindCabinet(Store& store, int id);
std::optional<PostRow> FindNamedPost(Store& store, int id);

}  // namespace feedloom
