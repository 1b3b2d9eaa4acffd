// Folders: the named, ordered containers of channels. Any thread may call these; each call opens
// and closes the database, and reports its own failures (Store.h).
#pragma once

#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Appends every folder with its unread count, by order; false after a failure.
bool LoadFolderList(Store& store, std::vector<FolderRow>& out);

// True when a folder has exactly this name; `id` and `order` are set only then.
bool FindFolderByName(Store& store, std::string_view name, int& id, int& order);
bool FolderNameExists(Store& store, std::string_view name);

// The highest order of all folders, or of the channels in folder `folderId`: 0 when there is none,
// -2 after a failure. A newcomer gets the result plus one.
int GetMaxOrder(Store& store, bool isFolder, int folderId);

// The new folder's id; 0 when the name is taken (nothing is inserted), -1 after a failure.
int AddFolder(Store& store, std::string_view name, int order);

// The same with the next order, which comes back in `order`. Without an order to give nothing is
// inserted: a negative one would protect the folder.
int AppendFolder(Store& store, std::string_view name, int& order);

// False after a failure.
bool RenameFolder(Store& store, int folderId, std::string_view name);
bool SetFolderOrder(Store& store, int folderId, int order);

// Deletes the folder, its channels and their posts; saved posts in cabinets stay. A statement that
// fails is reported and the next one still runs. False when one failed.
bool DeleteFolder(Store& store, int folderId);

}  // namespace feedloom
