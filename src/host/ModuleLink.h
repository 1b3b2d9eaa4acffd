#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// The path of the module that is installed with this program; empty when there is none.
std::string InstalledModule();

// Makes the symbolic link `link` point to the file `installed`. The module looks for the profile's
// database and registry beside the path that it is loaded by. A regular file at `link` is the
// user's own module and is kept. With an empty `installed` an existing link is kept, too, and a
// missing one is a failure.
[[nodiscard]] Failure LinkModule(const std::string& link, const std::string& installed);

}  // namespace feedloom
