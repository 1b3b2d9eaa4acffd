// The time and the pauses that the module takes. Tests and benchmarks hand in a clock of their own.
#pragma once

#include <chrono>
#include <ctime>
#include <stop_token>
#include <string>

namespace feedloom {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::chrono::system_clock::time_point Now() const = 0;
  // Blocks the calling thread for `duration`, or until `stop` is requested.
  virtual void Pause(std::chrono::milliseconds duration, std::stop_token stop = {}) = 0;
};

// The machine's own clock. Any thread may use it.
Clock& SystemClock();

// `time` in the machine's time zone.
std::tm LocalTime(std::chrono::system_clock::time_point time);

// `time` in the machine's time zone, formatted as strftime(3) does; ASCII.
std::string FormatLocalTime(std::chrono::system_clock::time_point time, const char* format);

}  // namespace feedloom
