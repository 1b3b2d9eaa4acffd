// What the reader asks of the module beyond the defaults that hold for every host.
#pragma once

#include <string>
#include <vector>

#include "files/RegistryFile.h"
#include "profile/Files.h"

namespace feedloom {

// The registry values that ask for it.
std::vector<RegistryEntry> HostWishes();

// The caption of the window and of the module's dialogs.
inline constexpr char kOwnTitle[] = "Feedloom";

// Writes those that the registry of the profile in `dir` lacks; a value that stands there stays,
// but for the module's default caption, which becomes kOwnTitle.
// Fails, with a message (UTF-8), when the registry cannot be written.
[[nodiscard]] Failure StoreHostWishes(const std::string& dir);

}  // namespace feedloom
