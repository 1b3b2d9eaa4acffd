#include "refresh/RefreshEngine.h"

#include <algorithm>

#include "fetch/FeedFetch.h"
#include "refresh/RefreshMonitor.h"
#include "threads/Thread.h"

namespace feedloom {
namespace {

void AskToStop(const std::vector<SharedJob>& jobs) {
  for (const SharedJob& job : jobs) job->stop.request_stop();
}

// Stops all workers. From now on none begins to send a message; one that is being sent is finished.
void StopJobs(RefreshRun& run) {
  std::vector<SharedJob> jobs;
  {
    const MutexLock lock(run.lock);
    run.stopping = true;
    jobs = run.DropJobs();
  }
  AskToStop(jobs);
}

bool IsReporting(const SharedJob& job) { return job->isReporting; }

// Waits for the workers until the stop timeout, and longer only for those that are sending a
// message. Detaches the threads of the others: they end by themselves.
void JoinJobs(RefreshRun& run) {
  const auto until = std::chrono::steady_clock::now() + run.limits.stopTimeout;
  const MutexLock lock(run.lock);
  for (run.Reap(); !run.jobs.empty(); run.Reap()) {
    if (run.changed.wait_until(run.lock, until) == std::cv_status::timeout) break;
  }
  while (std::ranges::any_of(run.jobs, IsReporting)) run.changed.wait(run.lock);
  run.Reap();
  for (const SharedJob& job : run.jobs) job->thread.detach();
  run.jobs.clear();
}

}  // namespace

RefreshEngine::RefreshEngine(SharedServices services, MessageTarget& frame, MessageTarget& host,
                             const RefreshLimits& limits, NewPostsReport newPosts)
    : run_(std::make_shared<RefreshRun>(std::move(services), frame, host, limits,
                                        std::move(newPosts))) {
  SweepTempFiles(run_->services->workDir);
  run_->resources.memory.Load();
}

RefreshEngine::~RefreshEngine() { Stop(); }

void RefreshEngine::Enqueue(std::vector<Channel> entries) {
  const MutexLock lock(run_->lock);
  const int before = run_->queue.Size();
  for (Channel& entry : entries) run_->queue.Append(std::move(entry));
  if (!run_->sums.wasStopped) run_->sums.total += run_->queue.Size() - before;
  run_->contentsAreFresh = false;
  run_->changed.notify_all();
}

void RefreshEngine::StartRefresh() {
  {
    const MutexLock lock(run_->lock);
    if (run_->stopping || run_->monitorRuns || !run_->queue.HasWaiting()) return;
    run_->monitorRuns = true;
    run_->BeginCount();
  }
  if (monitor_.joinable()) monitor_.join();
  if (StartThread(monitor_, [run = run_] { RunRefreshMonitor(run); })) return;
  {
    const MutexLock lock(run_->lock);
    run_->monitorRuns = false;
  }
  run_->GiveUp();
}

bool RefreshEngine::IsChannelQueued(int channelId) const {
  return IsAnyChannelQueued({&channelId, 1});
}

bool RefreshEngine::IsAnyChannelQueued(std::span<const int> channelIds) const {
  const MutexLock lock(run_->lock);
  for (const int channelId : channelIds) {
    if (run_->queue.Contains(channelId)) return true;
  }
  return false;
}

// A channel that is at work leaves the queue at once: it may be queued again for the next run.
void RefreshEngine::StopRun() {
  std::vector<SharedJob> jobs;
  {
    const MutexLock lock(run_->lock);
    if (!run_->monitorRuns || run_->stopping) return;
    run_->sums.wasStopped = true;
    run_->queue.RemoveWaiting();
    jobs = run_->DropJobs();
    for (const SharedJob& job : jobs) run_->queue.Remove(job->channelId);
  }
  AskToStop(jobs);
}

RefreshSums RefreshEngine::Sums() const {
  const MutexLock lock(run_->lock);
  return run_->sums;
}

FeedVisit RefreshEngine::LastVisit(const Channel& channel) const {
  return run_->resources.memory.Last(channel.id, channel.xmlLink);
}

void RefreshEngine::Stop() {
  StopJobs(*run_);
  if (monitor_.joinable()) monitor_.join();
  JoinJobs(*run_);
}

}  // namespace feedloom
