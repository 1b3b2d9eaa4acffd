#include "ingest/TimeLimit.h"

namespace feedloom {

TimeLimit::TimeLimit(Clock& clock, std::chrono::milliseconds limit, std::stop_token outer)
    : outer_(outer),
      passOn_(outer, [this] { stop_.request_stop(); }),
      watchdog_([this, &clock, limit](const std::stop_token& ended) {
        clock.Pause(limit, ended);
        if (!ended.stop_requested()) stop_.request_stop();
      }) {}

}  // namespace feedloom
