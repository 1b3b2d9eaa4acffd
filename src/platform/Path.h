// Paths as the module joins them. A path is the file system's own bytes, not a text in the module's
// code page.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// The separator that `directory` itself uses: a backslash when it holds one, else the system's own.
char PathSeparator(std::string_view directory);

// `directory` with its separator at the end; an empty one stays empty.
std::string WithTrailingSeparator(std::string_view directory);

// `directory`, its separator where one is missing, and `name`.
std::string JoinPath(std::string_view directory, std::string_view name);

}  // namespace feedloom
