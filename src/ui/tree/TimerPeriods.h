// The periods of the tree pane's two timers. Pure functions of the settings.
#pragma once

#include <chrono>
#include <optional>

namespace feedloom {

struct Settings;

// The time until the channels are refreshed automatically. Returns nullopt when the user has turned
// automatic refresh off, or when the setting is out of range.
std::optional<std::chrono::milliseconds> UpdatePeriod(const Settings& settings);

// The interval between notices of new posts. Returns nullopt when the setting is out of range.
std::optional<std::chrono::milliseconds> NotificationPeriod(const Settings& settings);

}  // namespace feedloom
