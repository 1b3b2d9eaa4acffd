#pragma once

#include <chrono>
#include <optional>

namespace feedloom {

struct Settings;

// After how long the channels are refreshed by themselves; none when the user has turned that off,
// or for an interval that does not exist. Pure.
std::optional<std::chrono::milliseconds> UpdatePeriod(const Settings& settings);

}  // namespace feedloom
