#pragma once

#include <chrono>
#include <ctime>
#include <functional>
#include <stop_token>

#include "platform/Clock.h"
#include "platform/Mutex.h"

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

  TimePoint Now() const override {
    const MutexLock lock(mutex_);
    return now_;
  }

  void Pause(std::chrono::milliseconds duration, std::stop_token = {}) override {
    {
      const MutexLock lock(mutex_);
      paused_ += duration;
    }
    onPause();
  }

  void Set(TimePoint now) {
    const MutexLock lock(mutex_);
    now_ = now;
  }

  std::function<void()> onPause = [] {};  // called at the end of each pause

  std::chrono::milliseconds TimePaused() const {  // the sum of all pauses asked for
    const MutexLock lock(mutex_);
    return paused_;
  }

 private:
  mutable Mutex mutex_;
  TimePoint now_ FEEDLOOM_GUARDED_BY(mutex_);
  std::chrono::milliseconds paused_ FEEDLOOM_GUARDED_BY(mutex_){0};
};

}  // namespace feedloom
