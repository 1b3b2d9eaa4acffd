#include "refresh/RefreshRun.h"

namespace feedloom {

void RefreshRun::Leave(int channelId, bool hasFailed) {
  const int before = queue.Size();
  queue.Remove(channelId);
  sums.done += before - queue.Size();
  if (hasFailed) ++sums.failed;
}

std::vector<SharedJob> RefreshRun::DropJobs() {
  for (const SharedJob& job : jobs) {
    if (job->phase == RefreshJob::Phase::Working) job->phase = RefreshJob::Phase::Dropped;
  }
  changed.notify_all();
  return jobs;
}

void RefreshRun::GiveUp() {
  {
    const MutexLock guard(lock);
    queue.RemoveWaiting();
  }
  services->store->ReportStoreError("The refresh ends: the system refuses another thread");
}

void RefreshRun::Reap() {
  std::erase_if(jobs, [](const SharedJob& job) {
    // The thread has released the lock for the last time, so joining it under the lock is safe.
    if (job->threadEnded && job->thread.joinable()) job->thread.join();
    return job->threadEnded;
  });
}

}  // namespace feedloom
