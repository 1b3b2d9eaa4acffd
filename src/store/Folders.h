// Operations on folders, the named containers of channels. Texts are in the module's code page. Any
// thread may call these functions; each call opens and closes the database and reports its own
// failures (Store.h).
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

class Connection;

// Appends every folder to `out`, sorted by order, with its number of unread posts. Returns false
// after a failure.
bool LoadFolderList(Store& store, std::vector<FolderRow>& out);

// True when a folder has exactly this name. FindFolderByName sets `id` and `order` only then, to
// the last one's when there are several. False also after a failure.
bool FindFolderByName(Store& store, std::string_view name, int& id, int& order);
bool FolderNameExists(Store& store, std::string_view name);

// The highest order of all folders or, when `isFolder` is false, of the channels in `folderId`: 0
// when there are none, -2 after a failure. A folder or channel that is added at the end gets the
// result plus one.
int GetMaxOrder(Store& store, bool isFolder, int folderId);
// The highest order of the channels in `folderId`, asked through `connection`: 0 when there are
// none, nullopt after a failure.
std::optional<int> HighestOrder(Connection& connection, int folderId);

// Returns the new folder's id, 0 when the name is taken (nothing is inserted), -1 after a failure.
int AddFolder(Store& store, std::string_view name, int order);

// Adds a folder as AddFolder does, behind the last one, and sets `order` to its order. Returns -1
// and inserts nothing when that order is not known or is negative, because a negative order would
// protect the folder.
int AppendFolder(Store& store, std::string_view name, int& order);

// Return false after a failure.
bool RenameFolder(Store& store, int folderId, std::string_view name);
bool SetFolderOrder(Store& store, int folderId, int order);

// Deletes the folder, its channels and their posts, but no saved posts. When one statement fails,
// the next one still runs. Returns false when one failed.
bool DeleteFolder(Store& store, int folderId);

}  // namespace feedloom
