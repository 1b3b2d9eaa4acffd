// Rules as JSON: as they are stored, exported and imported.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "filter/FilterRule.h"

namespace feedloom {

// A JSON object; what is as by default is left out. Bytes that are not UTF-8 become U+FFFD. Pure;
// any thread.
std::string FilterToJson(const FilterRule& rule);
// A JSON array of such objects, with line breaks. Pure; any thread.
std::string FiltersToJson(const std::vector<FilterRule>& rules);

struct ReadFilters {
  std::vector<FilterRule> rules = {};
  std::string error = {};  // in English; empty when all rules were read, otherwise there are none
};

// Reads what FiltersToJson writes. Keys and values that it does not know are errors, and so are
// values of another kind. Whether expressions are right is not looked at. Pure; any thread.
ReadFilters FiltersFromJson(std::string_view json);

}  // namespace feedloom
