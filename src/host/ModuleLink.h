#pragma once

#include <string>

#include "profile/Files.h"

namespace feedloom {

// The module that was installed with this program; empty when there is none.
std::string InstalledModule();

// Makes `link` lead to `installed`, so that the module finds the database and the registry of the
// profile around it. A file in the link's place is a module of the user's own and stays; so does
// whatever is there when `installed` is empty.
[[nodiscard]] Failure LinkModule(const std::string& link, const std::string& installed);

}  // namespace feedloom
