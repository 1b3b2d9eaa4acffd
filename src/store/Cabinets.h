// Operations on cabinets, the user's own collections of saved posts. Texts are in the module's code
// page. Any thread may call these functions; each call opens and closes the database and reports
// its own failures (Store.h).
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Appends every cabinet to `out`, sorted by order, with its number of unread posts. Returns false
// after a failure.
bool LoadCabinetList(Store& store, std::vector<CabinetRow>& out);

// True when there is a cabinet with exactly this title, or a saved post with exactly this link in
// the cabinet. False also after a failure.
bool CabinetTitleExists(Store& store, std::string_view title);
bool ScrapPostLinkExists(Store& store, int cabinetId, std::string_view link);

// Returns the new cabinet's id, 0 when the title is taken (nothing is inserted), -1 after a
// failure.
int AddCabinet(Store& store, std::string_view title, int order);

// Returns false after a failure.
bool RenameCabinet(Store& store, int cabinetId, std::string_view title);

// Deletes the cabinet and its saved posts. When one statement fails, the next one still runs.
// Returns false when one failed.
bool DeleteCabinet(Store& store, int cabinetId);

// Saves a copy of a post, unread; the same post may be saved twice. Returns the copy's id, -1 after
// a failure.
int InsertScrapPost(Store& store, int cabinetId, std::string_view title, std::string_view link,
                    std::string_view published, std::string_view description);
// Saves such copies of all `posts` in one transaction, each as far as it can be. Returns their
// number, 0 also after a failure; nullopt when there is no such cabinet.
std::optional<int> InsertScrapPosts(Store& store, int cabinetId, std::span<const PostRow> posts);

}  // namespace feedloom
