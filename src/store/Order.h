// The order of the tree's rows. Any thread may call these functions; each call opens and closes the
// database and reports its own failure (Store.h).
#pragma once

#include <span>

#include "store/Store.h"

namespace feedloom {

// Give the folders, or the channels, with these ids the orders 1, 2 and so on, in one statement:
// all of them or none. The channels come into the folder `folderId`. An id that is not stored
// changes nothing. False after a failure, and when that folder has gone: then nothing has changed.
bool OrderFolders(Store& store, std::span<const int> ids);
bool OrderChannels(Store& store, int folderId, std::span<const int> ids);

}  // namespace feedloom
