#include "ui/tree/TimerPeriods.h"

#include "skin/UpdatePeriods.h"
#include "ui/Settings.h"

namespace feedloom {

std::optional<std::chrono::milliseconds> UpdatePeriod(const Settings& settings) {
  return UpdatePeriodOf(settings.newFeedMode, settings.newFeedDuration);
}

std::optional<std::chrono::milliseconds> NotificationPeriod(const Settings& settings) {
  constexpr int kNever = 3;
  if (settings.newFeedMsgDuration == kNever) return std::nullopt;
  return UpdatePeriodOf(0, settings.newFeedMsgDuration);
}

}  // namespace feedloom
