#pragma once

#include <array>
#include <string>
#include <utility>

namespace feedloom {

// The registry values that name places in the shared directory, in the order of writing.
using SharePaths = std::array<std::pair<const char*, std::string>, 3>;

// `shareDir` is absolute.
SharePaths SharePathsIn(const std::string& shareDir);

}  // namespace feedloom
