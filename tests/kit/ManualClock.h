#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <functional>
#include <stop_token>

#include "threads/Clock.h"

namespace feedloom {

// Noon of a day in the machine's time zone.
inline std::chrono::system_clock::time_point NoonOf(int year, int month, int day) {
  std::tm noon{0, 0, 12, day, month - 1, year - 1900, 0, 0, -1, 0, nullptr};
  return std::chrono::system_clock::from_time_t(std::mktime(&noon));
}

// A clock that stands still until the test sets it. A pause returns at once, takes no time from the
// clock and is added up. Any thread may use it.
class ManualClock : public Clock {
 public:
  using TimePoint = std::chrono::system_clock::time_point;

  // Stands at the machine's time unless told otherwise.
  explicit ManualClock(TimePoint now = std::chrono::system_clock::now()) : now_(now) {}

  TimePoint Now() const override { return now_; }
  std::chrono::steady_clock::time_point SteadyNow() const override {
    return std::chrono::steady_clock::time_point(now_.load().time_since_epoch());
  }
  void Pause(std::chrono::milliseconds duration, std::stop_token = {}) override {
    paused_ += duration.count();
    onPause();
  }
  void Set(TimePoint now) { now_ = now; }
  std::chrono::milliseconds TimePaused() const {  // the sum of all pauses asked for
    return std::chrono::milliseconds(paused_);
  }

  std::function<void()> onPause = [] {};  // called at the end of each pause

 private:
  std::atomic<TimePoint> now_;
  std::atomic<std::int64_t> paused_ = 0;
};

}  // namespace feedloom
