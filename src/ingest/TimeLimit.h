#pragma once

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

#include "platform/Clock.h"

namespace feedloom {

// A stop that comes when `outer` does, or by itself when `limit` has passed on `clock`. Counts from
// its making to its end, on a thread of its own; the clock outlives it.
class TimeLimit {
 public:
  TimeLimit(Clock& clock, std::chrono::milliseconds limit, std::stop_token outer = {});

  std::stop_token Token() const { return stop_.get_token(); }
  // True when the stop came and `outer` had no part in it.
  bool RanOut() const { return stop_.stop_requested() && !outer_.stop_requested(); }

 private:
  const std::stop_token outer_;
  const std::stop_source stop_;
  const std::stop_callback<std::function<void()>> passOn_;
  const std::jthread watchdog_;
};

}  // namespace feedloom
