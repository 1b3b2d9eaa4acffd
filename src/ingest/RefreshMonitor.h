#pragma once

#include <memory>

#include "ingest/RefreshRun.h"

namespace feedloom {

// The monitor thread's work: takes channels from the queue, keeps at most the limited number of
// workers running, stops those that take too long, and announces the run's begin and end. Returns
// when the queue is empty and no worker runs, or when the run is stopping.
void RunRefreshMonitor(const std::shared_ptr<RefreshRun>& run);

}  // namespace feedloom
