#pragma once

#include <span>
#include <string_view>

#include "store/Store.h"

namespace feedloom {

// Runs `base` + " Where" clause(id1) + " Or" clause(id2) ... + `closing`; without ids there is no
// " Where". `clause` holds one "%d". A long list is run as several statements on one connection,
// because SQLite takes at most a thousand terms in one; true when all succeeded.
bool ExecuteForIds(Store& store, std::string_view base, std::string_view clause,
                   std::string_view closing, std::span<const int> ids);

}  // namespace feedloom
