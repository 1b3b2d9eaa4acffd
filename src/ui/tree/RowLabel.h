// The label of a row. Pure function.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Appends the count to the name, as in "Economy(12)". A count of 0 or less is not appended. Any
// ASCII-compatible encoding.
std::string AppendCount(std::string_view name, int count);

}  // namespace feedloom
