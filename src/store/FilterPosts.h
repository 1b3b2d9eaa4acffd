// What rules do to posts that are stored already. Any thread may call these functions, which take
// some seconds when there are many posts; each call opens and closes the database and reports its
// own failures (Store.h).
#pragma once

#include <optional>
#include <span>
#include <stop_token>

#include "filter/FilterRule.h"
#include "store/Store.h"

namespace feedloom {

// How many posts meet the rule, whether it is on or off. nullopt after a failure, and when `stop`
// was requested.
std::optional<int> CountFiltered(Store& store, const FilterRule& rule, const std::stop_token& stop);

struct FilterSums {
  bool operator==(const FilterSums&) const = default;

  int read = 0;     // posts that were marked read
  int deleted = 0;  // posts
  int saved = 0;    // copies in cabinets
};

// Applies the rules that are on: some hundred posts a step, each step whole. A post that a cabinet
// holds already, by its link, is not copied to it again, nor to one that is gone. nullopt after a
// failure, and when `stop` was requested: what was done until then stays.
std::optional<FilterSums> ApplyFilters(Store& store, std::span<const FilterRule> rules,
                                       const std::stop_token& stop);

}  // namespace feedloom
