#include "refresh/RefreshMonitor.h"

#include <algorithm>
#include <optional>
#include <thread>
#include <utility>

#include "fetch/VisitAfter.h"
#include "refresh/RefreshWorker.h"
#include "store/Channels.h"
#include "threads/Thread.h"
#include "threads/ThreadPriority.h"

namespace feedloom {
namespace {

using Phase = RefreshJob::Phase;

// Passes a worker's reports on to the frame until the worker is dropped. Messages are sent without
// the lock, because their receivers use the store.
class JobReport : public WorkerReport {
 public:
  JobReport(RefreshRun& run, RefreshJob& job) : run_(run), job_(job) {}

  void Began() {
    if (job_.entry.id < 0 || !Begin()) return;
    run_.frame.Send(kMessageChannelWorker, job_.entry.id, 0);
    Finish(Phase::Working);
  }

  void Fetched() override {
    const MutexLock lock(run_.lock);
    job_.resultIfStopped = kChannelRefreshed;
  }

  void Stored(int channelId, bool newlyInserted) override {
    {
      const MutexLock lock(run_.lock);
      run_.queue.Renumber(job_.channelId, channelId);
      job_.channelId = channelId;
    }
    if (newlyInserted && Begin()) {
      run_.frame.Send(kMessageChannelInserted, channelId, 1);
      Finish(Phase::Working);
    }
  }

  void Inserted(const Changes& posts) override {
    {
      const MutexLock lock(run_.lock);
      auto& all = run_.sums.posts;
      all.insert(all.end(), posts.inserted.begin(), posts.inserted.end());
      if (!run_.sums.wasStopped) run_.sums.missing += posts.failed;
    }
    if (!run_.newPosts || posts.rows + posts.failed == 0 || !Begin(true)) return;
    run_.newPosts(job_.channelId, posts.rows, posts.failed);
    Finish(Phase::Working);
  }

  // Writes the channel's state only when it is that of an earlier failure: most refreshes of
  // unchanged feeds then write nothing.
  void Unchanged() override { End(kChannelRefreshed, job_.stored.state != kChannelRefreshed); }

  void Ended(ChannelResult result) override {
    End(result, job_.channelId >= 0 && result != kChannelRefreshed);
  }

 private:
  void End(ChannelResult result, bool storesState) {
    if (!Begin()) return;
    if (storesState) SetChannelState(*run_.services->store, job_.channelId, result);
    run_.frame.Send(kMessageChannelResult, result, job_.channelId);
    Finish(Phase::Ended, result != kChannelRefreshed);
  }

  // Returns whether the worker may report. One that was dropped may only when `evenDropped`.
  bool Begin(bool evenDropped = false) {
    const MutexLock lock(run_.lock);
    const bool isDropped = job_.phase == Phase::Dropped;
    job_.isReporting = !run_.stopping && (evenDropped || !isDropped);
    return job_.isReporting;
  }

  // The entry of a dropped worker has gone: one of the same channel waits for the next run.
  void Finish(Phase next, bool hasFailed = false) {
    const MutexLock lock(run_.lock);
    job_.isReporting = false;
    run_.changed.notify_all();
    if (job_.phase == Phase::Dropped) return;
    job_.phase = next;
    if (next == Phase::Ended) run_.Leave(job_.channelId, hasFailed);
  }

  RefreshRun& run_;
  RefreshJob& job_;
};

void RunWorker(const std::shared_ptr<RefreshRun>& run, const SharedJob& job) {
  JobReport report(*run, *job);
  report.Began();
  RefreshChannel(job->entry, job->stored.holdsPosts, *run->services, run->resources, report,
                 job->stop.get_token());
  const MutexLock lock(run->lock);
  job->threadEnded = true;
  run->changed.notify_all();
}

// The monitor's next action: chosen under the lock, done without it.
struct Step {
  enum class Kind { Tell, LoadContents, Start, Stop, Finish } kind = Kind::Finish;
  SharedJob job;
  // Of a job to stop:
  int channelId = 0;
  ChannelResult result = kDownloadFailed;
};

// A worker that was dropped while it stored posts ends soon, and counts them first. One that waits
// for a server may take long.
bool IsRunning(const SharedJob& job) {
  const bool stores = job->resultIfStopped == kChannelRefreshed;
  return !job->threadEnded && (job->phase != Phase::Dropped || stores);
}

// Drops the worker that began last of those that have passed their time limit, and returns it, or
// null when there is none.
SharedJob DropOverdue(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  const auto limit = run.services->clock.SteadyNow() - run.limits.timeLimit;
  const auto overdue = std::find_if(run.jobs.rbegin(), run.jobs.rend(), [&](const SharedJob& job) {
    return job->phase == Phase::Working && !job->isReporting && job->started <= limit;
  });
  if (overdue == run.jobs.rend()) return nullptr;
  (*overdue)->phase = Phase::Dropped;
  run.Leave((*overdue)->channelId, (*overdue)->resultIfStopped != kChannelRefreshed);
  return *overdue;
}

SharedJob ClaimJob(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  if (std::ranges::count_if(run.jobs, IsRunning) >= run.workers) return nullptr;
  auto entry = run.queue.Claim();
  if (!entry) return nullptr;
  auto job = std::make_shared<RefreshJob>();
  job->channelId = entry->id;
  job->entry = *std::move(entry);
  const auto stored = run.contents.find(job->channelId);
  if (stored != run.contents.end()) job->stored = stored->second;
  job->started = run.services->clock.SteadyNow();
  run.jobs.push_back(job);
  return job;
}

// Waits until something changes or a worker reaches its time limit.
void WaitForChange(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  std::optional<std::chrono::steady_clock::time_point> first;
  for (const SharedJob& job : run.jobs) {
    const bool isTimed = job->phase == Phase::Working && !job->isReporting;
    if (isTimed) first = std::min(first.value_or(job->started), job->started);
  }
  if (first) {
    const auto end = *first + run.limits.timeLimit;
    run.changed.wait_for(run.lock, end - run.services->clock.SteadyNow());
  } else {
    run.changed.wait(run.lock);
  }
}

// Waits for the workers of a run that was stopped: as long as they store posts or send a message,
// for the others until the stop timeout. So none of them meets the next run.
void AwaitStopped(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  const auto until = std::chrono::steady_clock::now() + run.limits.stopTimeout;
  const auto isAwaited = [](const SharedJob& job) { return IsRunning(job) || job->isReporting; };
  for (run.Reap(); !run.jobs.empty() && !run.stopping; run.Reap()) {
    if (std::ranges::any_of(run.jobs, isAwaited)) {
      run.changed.wait(run.lock);
    } else if (run.changed.wait_until(run.lock, until) == std::cv_status::timeout) {
      return;
    }
  }
}

// How many channels have ended, and of how many.
using Progress = std::pair<int, int>;

// `told` is what the host was told, and is told with Step::Kind::Tell.
Step NextStep(RefreshRun& run, Progress& told) {
  const MutexLock lock(run.lock);
  for (;;) {
    run.Reap();
    if (run.sums.wasStopped) AwaitStopped(run);
    if (run.stopping || run.sums.wasStopped) return {};
    const Progress progress(run.sums.done, run.sums.total);
    if (std::exchange(told, progress) != progress) return {Step::Kind::Tell, nullptr};
    if (const SharedJob overdue = DropOverdue(run)) {
      return {Step::Kind::Stop, overdue, overdue->channelId, overdue->resultIfStopped};
    }
    const bool needsContents = run.queue.HasWaiting() && !run.resources.memory.IsEmpty();
    if (needsContents && !std::exchange(run.contentsAreFresh, true))
      return {Step::Kind::LoadContents, nullptr};
    if (const SharedJob job = ClaimJob(run)) return {Step::Kind::Start, job};
    if (std::ranges::none_of(run.jobs, IsRunning) && !run.queue.HasWaiting()) return {};
    WaitForChange(run);
  }
}

// Reads from the store the state of every channel, and whether it has posts.
void LoadStoredContents(RefreshRun& run) {
  std::vector<ChannelContents> channels;
  LoadChannelContents(*run.services->store, channels);
  const MutexLock lock(run.lock);
  run.contents.clear();
  for (const ChannelContents& channel : channels) run.contents[channel.id] = channel;
}

// Without a thread the channel waits for one of the workers that run to end.
void StartWorker(const std::shared_ptr<RefreshRun>& run, const SharedJob& job) {
  {
    const MutexLock lock(run->lock);
    if (StartThread(job->thread, [run, job] { RunWorker(run, job); })) return;
    std::erase(run->jobs, job);
    if (job->phase != Phase::Dropped) run->queue.Unclaim();
    run->workers = std::ranges::count_if(run->jobs, IsRunning);
    if (run->workers > 0) return;
  }
  run->GiveUp();
}

// The visit is remembered before the worker learns that it is stopped: it would do so for both.
void StopWorker(RefreshRun& run, const Step& step) {
  FeedMemory& memory = run.resources.memory;
  FeedVisit last = memory.Last(step.channelId, step.job->entry.xmlLink);
  const FeedFault fault{.kind = FeedFaultKind::TimedOut};
  FeedVisit visit = VisitAfterFault(std::move(last), fault, run.services->clock.Now());
  if (step.channelId >= 0) memory.Remember(step.channelId, std::move(visit));
  step.job->stop.request_stop();
  if (step.channelId >= 0) SetChannelState(*run.services->store, step.channelId, step.result);
  run.frame.Send(kMessageChannelWorker, step.channelId, 0);
}

void ProcessQueue(const std::shared_ptr<RefreshRun>& run) {
  {
    const MutexLock lock(run->lock);
    run->workers = run->limits.workers;
  }
  Progress told;
  for (Step step = NextStep(*run, told); step.kind != Step::Kind::Finish;
       step = NextStep(*run, told)) {
    switch (step.kind) {
      case Step::Kind::Tell:
        run->host.Send(kMessageRefreshProgress, told.first, told.second);
        break;
      case Step::Kind::LoadContents:
        LoadStoredContents(*run);
        break;
      case Step::Kind::Start:
        StartWorker(run, step.job);
        break;
      default:
        StopWorker(*run, step);
    }
  }
}

// A failure to write the file is ignored: all it costs is that whole documents are fetched again.
void CloseConnectionsAndSaveMemory(RefreshRun& run) {
  run.resources.pool.CloseIdle();
  (void)run.resources.memory.Save([&run](int channelId) {
    const MutexLock lock(run.lock);
    return run.contents.empty() || run.contents.contains(channelId);
  });
}

// Returns true when the queue is empty: then the monitor thread ends. Entries that arrived while
// the run's end was announced need another run.
bool TryEndRun(RefreshRun& run) {
  const MutexLock lock(run.lock);
  if (run.stopping) run.queue.RemoveWaiting();
  run.monitorRuns = run.queue.HasWaiting();
  if (run.monitorRuns) run.BeginCount();
  return !run.monitorRuns;
}

}  // namespace

void RunRefreshMonitor(const std::shared_ptr<RefreshRun>& run) {
  LowerThreadPriority();
  do {
    run->host.Send(kMessageRefreshBegan, 0, 0);
    run->resources.memory.Load();
    ProcessQueue(run);
    CloseConnectionsAndSaveMemory(*run);
    run->frame.Send(kMessageChannelResult, kRunEnded, 0);
    run->host.Send(kMessageRefreshEnded, 0, 0);
  } while (!TryEndRun(*run));
}

}  // namespace feedloom
