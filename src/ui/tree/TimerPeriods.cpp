#include "ui/tree/TimerPeriods.h"

#include <span>

#include "ui/Settings.h"

namespace feedloom {
namespace {

using std::chrono::minutes;

constexpr minutes kPeriods[] = {minutes(15), minutes(30), minutes(60), minutes(120)};

std::optional<std::chrono::milliseconds> PeriodAt(std::span<const minutes> periods, int chosen) {
  const auto index = static_cast<std::size_t>(chosen);  // a negative value wraps to a large one
  if (index >= periods.size()) return std::nullopt;
  return periods[index];
}

}  // namespace

std::optional<std::chrono::milliseconds> UpdatePeriod(const Settings& settings) {
  if (settings.newFeedMode != 0) return std::nullopt;
  return PeriodAt(kPeriods, settings.newFeedDuration);
}

std::optional<std::chrono::milliseconds> NotificationPeriod(const Settings& settings) {
  return PeriodAt(std::span(kPeriods).first<3>(), settings.newFeedMsgDuration);
}

}  // namespace feedloom
