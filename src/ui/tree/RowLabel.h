// The label of a row. Pure functions.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Appends the count to the name, as in "Economy(12)". A count of 0 or less is not appended. Any
// ASCII-compatible encoding.
std::string AppendCount(std::string_view name, int count);

// Returns the part of `label` before its last "(", so the name when AppendCount has appended a
// count; the whole label when there is no "(". Any encoding in which the byte 0x28 is only "(".
std::string StripCount(std::string_view label);

}  // namespace feedloom
