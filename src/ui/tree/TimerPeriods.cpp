#include "ui/tree/UpdatePeriod.h"

#include <array>

#include "ui/Settings.h"

namespace feedloom {
namespace {

using std::chrono::minutes;

constexpr std::array kPeriods = {minutes(15), minutes(30), minutes(60), minutes(120)};

}  // namespace

std::optional<std::chrono::milliseconds> UpdatePeriod(const Settings& settings) {
  // A negative index becomes a very large one.
  const auto index = static_cast<std::size_t>(settings.newFeedDuration);
  if (settings.newFeedMode != 0 || index >= kPeriods.size()) return std::nullopt;
  return kPeriods[index];
}

}  // namespace feedloom
