// Joins paths. A path consists of the file system's bytes; it is not a text in the module's code
// page. All functions are pure; any thread may call them.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// The separator that `directory` uses: a backslash if it contains one, otherwise a slash.
char PathSeparator(std::string_view directory);

// `directory` with a separator at its end. An empty directory stays empty.
std::string WithTrailingSeparator(std::string_view directory);

// `directory` and `name`, with a separator between them unless `directory` is empty.
std::string JoinPath(std::string_view directory, std::string_view name);

}  // namespace feedloom
