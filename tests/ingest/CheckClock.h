#pragma once

#include "ingest/RefreshRun.h"
#include "kit/ManualClock.h"

namespace feedloom {

// A manual clock on which pauses as long as `limit`, by default a feed check's time limit, last
// until the test calls RunOut. Any thread may use it.
class CheckClock : public ManualClock {
 public:
  explicit CheckClock(std::chrono::milliseconds limit = RefreshLimits().timeLimit)
      : limit_(limit) {}

  void Pause(std::chrono::milliseconds duration, std::stop_token stop = {}) override {
    if (duration < limit_) return ManualClock::Pause(duration, stop);
    std::unique_lock lock(mutex_);
    changed_.wait(lock, stop, [this] { return ranOut_; });
  }

  void RunOut() {
    const std::lock_guard lock(mutex_);
    ranOut_ = true;
    changed_.notify_all();
  }

 private:
  const std::chrono::milliseconds limit_;
  std::mutex mutex_;
  std::condition_variable_any changed_;
  bool ranOut_ = false;
};

}  // namespace feedloom
