#include "ingest/RefreshRun.h"

namespace feedloom {

void RefreshRun::Reap() {
  std::erase_if(jobs, [](const SharedJob& job) {
    // An ended thread needs no lock any more, so this join waits for its return alone.
    if (job->threadEnded && job->thread.joinable()) job->thread.join();
    return job->threadEnded;
  });
}

}  // namespace feedloom
