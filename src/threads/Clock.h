// The current time and pauses. Tests and benchmarks use a clock of their own instead.
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
  // For measuring how long something takes: nobody sets this time.
  virtual std::chrono::steady_clock::time_point SteadyNow() const = 0;
  // Blocks the calling thread for `duration`, or until `stop` is requested.
  virtual void Pause(std::chrono::milliseconds duration, std::stop_token stop = {}) = 0;
};

// The machine's clock; it lives as long as the program. Any thread may use it.
Clock& SystemClock();

// `time` in the machine's time zone.
std::tm LocalTime(std::chrono::system_clock::time_point time);

// `time` in the machine's time zone, formatted as strftime(3) does. `format` is ASCII; a result of
// 64 bytes or more comes out empty.
std::string FormatLocalTime(std::chrono::system_clock::time_point time, const char* format);

}  // namespace feedloom
