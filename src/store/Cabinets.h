// Cabinets: the user's own collections of saved posts. Any thread may call these; each call opens
// and closes the database, and reports its own failures (Store.h).
#pragma once

#include <string_view>
#include <vector>

#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Appends every cabinet with its unread count, by order; false after a failure.
bool LoadCabinetList(Store& store, std::vector<CabinetRow>& out);

bool CabinetTitleExists(Store& store, std::string_view title);
bool ScrapPostLinkExists(Store& store, int cabinetId, std::string_view link);

// The new cabinet's id; 0 when the title is taken (nothing is inserted), -1 after a failure.
int AddCabinet(Store& store, std::string_view title, int order);

// False after a failure.
bool RenameCabinet(Store& store, int cabinetId, std::string_view title);

// Deletes the cabinet and its saved posts. A statement that fails is reported and the next one
// still runs. False when one failed.
bool DeleteCabinet(Store& store, int cabinetId);

// Saves a copy of a post; the same post may be saved twice. The copy's id, -1 after a failure.
int InsertScrapPost(Store& store, int cabinetId, std::string_view title, std::string_view link,
                    std::string_view published, std::string_view description);

}  // namespace feedloom
