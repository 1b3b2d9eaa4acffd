// The periods that the user has chosen for channels, in the registry by their feeds' addresses: so
// they hold for a channel that is deleted and comes back.
#pragma once

#include <chrono>
#include <map>
#include <string>

#include "files/Registry.h"

namespace feedloom {

// By the feed's address in the module's code page; 0 for the period that the feed itself wishes,
// as for an address that is not there.
using OwnPeriods = std::map<std::string, std::chrono::minutes>;

// Returns all that are stored. Any thread.
OwnPeriods LoadOwnPeriods(const Registry& registry);

// Stores the period of the feed at `address`, and returns whether it could. Any thread.
[[nodiscard]] bool StoreOwnPeriod(const Registry& registry, const std::string& address,
                                  std::chrono::minutes period);

}  // namespace feedloom
