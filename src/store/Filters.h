// The user's filters, in the table of share/filters.sql. Any thread may call these functions; each
// call opens and closes the database and reports its own failures (Store.h).
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "filter/FilterRule.h"
#include "store/Store.h"

namespace feedloom {

// The rules in their order; none in a database without the table. A row that cannot be read is left
// out. nullopt after a failure.
std::optional<std::vector<FilterRule>> LoadFilters(Store& store);

// Replaces all rules in one transaction. Returns false after a failure: then nothing has changed.
[[nodiscard]] bool SaveFilters(Store& store, std::span<const FilterRule> rules);

}  // namespace feedloom
