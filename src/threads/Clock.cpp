#include "threads/Clock.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace feedloom {
namespace {

class MachineClock : public Clock {
 public:
  std::chrono::system_clock::time_point Now() const override {
    return std::chrono::system_clock::now();
  }

  std::chrono::steady_clock::time_point SteadyNow() const override {
    return std::chrono::steady_clock::now();
  }

  void Pause(std::chrono::milliseconds duration, std::stop_token stop) override {
    if (!stop.stop_possible()) {
      std::this_thread::sleep_for(duration);
      return;
    }
    std::mutex mutex;
    std::condition_variable_any stopped;
    std::unique_lock lock(mutex);
    stopped.wait_for(lock, stop, duration, [] { return false; });
  }
};

}  // namespace

Clock& SystemClock() {
  static MachineClock clock;
  return clock;
}

std::tm LocalTime(std::chrono::system_clock::time_point time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm local{};
  localtime_r(&seconds, &local);
  return local;
}

std::string FormatLocalTime(std::chrono::system_clock::time_point time, const char* format) {
  const std::tm local = LocalTime(time);
  char text[64];
  return {text, std::strftime(text, sizeof text, format, &local)};
}

}  // namespace feedloom
