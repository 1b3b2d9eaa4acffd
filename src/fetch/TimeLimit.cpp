#include "fetch/TimeLimit.h"

#include "threads/Thread.h"

namespace feedloom {

TimeLimit::TimeLimit(Clock& clock, std::chrono::milliseconds limit, std::stop_token outer)
    : outer_(outer), passOn_(outer, [this] { stop_.request_stop(); }) {
  const auto watch = [this, &clock, limit] {
    clock.Pause(limit, ended_.get_token());
    if (!ended_.stop_requested()) stop_.request_stop();
  };
  if (!StartThread(watchdog_, watch)) stop_.request_stop();
}

TimeLimit::~TimeLimit() {
  ended_.request_stop();
  if (watchdog_.joinable()) watchdog_.join();
}

}  // namespace feedloom
