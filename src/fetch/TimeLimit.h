#pragma once

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

#include "threads/Clock.h"

namespace feedloom {

// Requests a stop when `outer` does, or when `limit` has passed on `clock` since the construction.
// Runs a thread for that; when the system refuses one, requests the stop at once, because nothing
// would end a wait. The clock must outlive the object. Any thread may call it.
class TimeLimit {
 public:
  TimeLimit(Clock& clock, std::chrono::milliseconds limit, std::stop_token outer = {});
  ~TimeLimit();
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

  std::stop_token Token() const { return stop_.get_token(); }
  // Returns whether the stop came from the time limit.
  bool RanOut() const { return stop_.stop_requested() && !outer_.stop_requested(); }

 private:
  const std::stop_token outer_;
  const std::stop_source stop_;
  const std::stop_callback<std::function<void()>> passOn_;
  const std::stop_source ended_;
  std::thread watchdog_;
};

}  // namespace feedloom
