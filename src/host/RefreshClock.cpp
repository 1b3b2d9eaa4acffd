#include "host/RefreshClock.h"

#include <chrono>
#include <optional>
#include <utility>

#include "files/RegistryKeys.h"
#include "skin/UpdatePeriods.h"
#include "text/Text.h"

namespace feedloom {
namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

// The module stores its settings as texts; one that is missing counts as 0.
std::optional<std::chrono::minutes> ChosenPeriod(const Registry& registry) {
  const auto number = [&](const char* name) {
    return ParseInt(registry.ReadString(kModuleKey, std::string(name) + kTextSuffix).value_or(""));
  };
  return UpdatePeriodOf(number(kValueNewFeedMode), number(kValueNewFeedDuration));
}

sys_seconds NowOf(const Clock& clock) { return std::chrono::floor<seconds>(clock.Now()); }

}  // namespace

RefreshClock::RefreshClock(Registry registry, const Clock& clock, std::function<bool()> isOnline,
                           std::function<void()> refresh)
    : registry_(std::move(registry)),
      clock_(clock),
      isOnline_(std::move(isOnline)),
      refresh_(std::move(refresh)),
      last_(NowOf(clock)) {
  if (const auto stored = registry_.ReadDword(kHostKey, kValueLastUpdate)) {
    last_ = sys_seconds(seconds(*stored));
  } else {
    RememberNow();
  }
  QObject::connect(&look_, &QTimer::timeout, &look_, [this] { Look(); });
}

void RefreshClock::Start() {
  constexpr seconds kFirst(5);  // not beside the window's start
  constexpr std::chrono::minutes kEvery(1);
  look_.setTimerType(Qt::VeryCoarseTimer);
  look_.start(kEvery);
  QTimer::singleShot(kFirst, &look_, [this] { Look(); });
}

void RefreshClock::Look() {
  if (NowOf(clock_) < last_) RememberNow();
  if (!IsTime() || !isOnline_()) return;
  RememberNow();
  refresh_();
}

bool RefreshClock::IsTime() const {
  const auto period = ChosenPeriod(registry_);
  return period && NowOf(clock_) - last_ >= *period;
}

void RefreshClock::RememberNow() {
  last_ = NowOf(clock_);
  // It is only a matter of the next start's first refresh.
  static_cast<void>(registry_.WriteDword(
      kHostKey, kValueLastUpdate, static_cast<std::uint32_t>(last_.time_since_epoch().count())));
}

}  // namespace feedloom
