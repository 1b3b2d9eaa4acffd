#pragma once

#include <memory>

#include "refresh/RefreshRun.h"

namespace feedloom {

// The function of the monitor thread. Takes channels from the queue, runs at most
// RefreshLimits::workers workers, stops those that reach the time limit, and announces the run's
// beginning and end. Returns when the queue is empty and no worker runs, or when `run` is stopping.
void RunRefreshMonitor(const std::shared_ptr<RefreshRun>& run);

}  // namespace feedloom
