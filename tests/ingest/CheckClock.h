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
    std::stop_source end;
    const auto toEnd = [&end] { end.request_stop(); };
    const std::stop_callback onStop(stop, toEnd), onRunOut(ranOut_.get_token(), toEnd);
    SystemClock().Pause(std::chrono::hours(24), end.get_token());
  }

  void RunOut() { ranOut_.request_stop(); }

 private:
  const std::chrono::milliseconds limit_;
  std::stop_source ranOut_;
};

}  // namespace feedloom
