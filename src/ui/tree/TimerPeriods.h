// The periods of the tree pane's two timers, from the settings. Pure.
#pragma once

#include <chrono>
#include <optional>

namespace feedloom {

struct Settings;

// After how long the channels are refreshed by themselves; none when the user has turned that off,
// or for an interval that does not exist.
std::optional<std::chrono::milliseconds> UpdatePeriod(const Settings& settings);

// How often new posts are announced; none for an interval that does not exist.
std::optional<std::chrono::milliseconds> NotificationPeriod(const Settings& settings);

}  // namespace feedloom
