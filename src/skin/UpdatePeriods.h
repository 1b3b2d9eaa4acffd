// How often the user wants channels to be refreshed by themselves, as the settings store it.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <optional>

namespace feedloom {

inline constexpr std::array kUpdatePeriods{std::chrono::minutes(15), std::chrono::minutes(30),
                                           std::chrono::minutes(60), std::chrono::minutes(120)};

// The period of a stored mode (kValueNewFeedMode: 0 is automatic) and interval
// (kValueNewFeedDuration: an index). Returns nullopt when the user wants no automatic refresh, or
// the interval is out of range.
constexpr std::optional<std::chrono::minutes> UpdatePeriodOf(int mode, int interval) {
  const auto index = static_cast<std::size_t>(interval);  // a negative value wraps to a large one
  if (mode != 0 || index >= kUpdatePeriods.size()) return std::nullopt;
  return kUpdatePeriods[index];
}

}  // namespace feedloom
