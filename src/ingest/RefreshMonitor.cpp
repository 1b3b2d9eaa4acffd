#include "ingest/RefreshMonitor.h"

#include <algorithm>
#include <optional>
#include <thread>
#include <utility>

#include "ingest/RefreshWorker.h"
#include "platform/ThreadPriority.h"
#include "store/Channels.h"

namespace feedloom {
namespace {

using Phase = RefreshJob::Phase;
using Clock = std::chrono::steady_clock;

// Passes a worker's report on to the frame as long as the worker has not been dropped. Messages are
// sent without the lock, which their receivers need.
class JobReport : public WorkerReport {
 public:
  JobReport(RefreshRun& run, RefreshJob& job) : run_(run), job_(job) {}

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

  void Inserted(int newPosts) override {
    if (!run_.newPosts || newPosts == 0 || !Begin()) return;
    run_.newPosts(job_.channelId, newPosts);
    Finish(Phase::Working);
  }

  // The store is left alone then, unless it has to forget an earlier failure.
  void Unchanged() override { End(kChannelRefreshed, job_.stored.state != kChannelRefreshed); }

  void Ended(ChannelResult result) override { End(result, job_.channelId >= 0); }

 private:
  void End(ChannelResult result, bool storesState) {
    if (!Begin()) return;
    if (storesState) SetChannelState(*run_.services->store, job_.channelId, result);
    run_.frame.Send(kMessageChannelResult, result, job_.channelId);
    Finish(Phase::Ended);
  }

  bool Begin() {
    const MutexLock lock(run_.lock);
    if (job_.phase == Phase::Dropped) return false;
    job_.phase = Phase::Reporting;
    return true;
  }

  void Finish(Phase next) {
    const MutexLock lock(run_.lock);
    job_.phase = run_.stopping ? Phase::Dropped : next;
    if (next == Phase::Ended) run_.queue.Remove(job_.channelId);
    run_.changed.notify_all();
  }

  RefreshRun& run_;
  RefreshJob& job_;
};

void RunWorker(const std::shared_ptr<RefreshRun>& run, const SharedJob& job) {
  JobReport report(*run, *job);
  RefreshChannel(job->entry, job->stored.holdsPosts, *run->services, run->web, report,
                 job->stop.get_token());
  const MutexLock lock(run->lock);
  job->threadEnded = true;
  run->changed.notify_all();
}

// What the monitor does next, decided under the lock and done without it.
struct Step {
  enum class Kind { Look, Start, Stop, Finish } kind = Kind::Finish;
  SharedJob job;
  int channelId = 0;
  ChannelResult result = kDownloadFailed;  // of a job to stop
};

bool IsRunning(const SharedJob& job) { return job->phase != Phase::Dropped && !job->threadEnded; }

// Takes the worker that is past its time limit out of the run, if there is one.
SharedJob DropOverdue(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  const SteadyTime limit = Clock::now() - run.limits.timeLimit;
  for (const SharedJob& job : run.jobs) {
    if (job->phase != Phase::Working || job->started > limit) continue;
    job->phase = Phase::Dropped;
    run.queue.Remove(job->channelId);
    return job;
  }
  return nullptr;
}

SharedJob ClaimJob(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  const auto running = std::ranges::count_if(run.jobs, IsRunning);
  if (running >= run.limits.workers) return nullptr;
  auto entry = run.queue.Claim();
  if (!entry) return nullptr;
  auto job = std::make_shared<RefreshJob>();
  job->channelId = entry->channelId;
  job->entry = *std::move(entry);
  const auto stored = run.contents.find(job->channelId);
  if (stored != run.contents.end()) job->stored = stored->second;
  job->started = Clock::now();
  run.jobs.push_back(job);
  return job;
}

// Until something changes, or the first of the working jobs reaches its time limit.
void WaitForChange(RefreshRun& run) FEEDLOOM_REQUIRES(run.lock) {
  std::optional<SteadyTime> until;
  for (const SharedJob& job : run.jobs) {
    const SteadyTime end = job->started + run.limits.timeLimit;
    if (job->phase == Phase::Working && (!until || end < *until)) until = end;
  }
  if (until) {
    run.changed.wait_until(run.lock, *until);
  } else {
    run.changed.wait(run.lock);
  }
}

Step NextStep(RefreshRun& run) {
  const MutexLock lock(run.lock);
  for (;;) {
    run.Reap();
    if (run.stopping) return {};
    if (const SharedJob overdue = DropOverdue(run)) {
      return {Step::Kind::Stop, overdue, overdue->channelId, overdue->resultIfStopped};
    }
    const bool mayLook = run.queue.HasWaiting() && !run.web.memory.IsEmpty();
    if (mayLook && !std::exchange(run.contentsAreFresh, true)) return {Step::Kind::Look, nullptr};
    if (const SharedJob job = ClaimJob(run)) return {Step::Kind::Start, job, job->channelId};
    if (std::ranges::none_of(run.jobs, IsRunning) && !run.queue.HasWaiting()) return {};
    WaitForChange(run);
  }
}

// Reads what the store says of the channels that wait.
void LookAtChannels(RefreshRun& run) {
  std::vector<ChannelContents> channels;
  LoadChannelContents(*run.services->store, channels);
  const MutexLock lock(run.lock);
  run.contents.clear();
  for (const ChannelContents& channel : channels) run.contents[channel.id] = channel;
}

void StartWorker(const std::shared_ptr<RefreshRun>& run, const SharedJob& job, int channelId) {
  if (channelId >= 0) run->frame.Send(kMessageChannelWorker, channelId, 0);
  const MutexLock lock(run->lock);
  job->thread = std::thread([run, job] { RunWorker(run, job); });
}

void StopWorker(RefreshRun& run, const Step& step) {
  step.job->stop.request_stop();
  if (step.channelId < 0) return;
  SetChannelState(*run.services->store, step.channelId, step.result);
  run.frame.Send(kMessageChannelWorker, step.channelId, 0);
}

void WorkOffQueue(const std::shared_ptr<RefreshRun>& run) {
  for (Step step = NextStep(*run); step.kind != Step::Kind::Finish; step = NextStep(*run)) {
    switch (step.kind) {
      case Step::Kind::Look:
        LookAtChannels(*run);
        break;
      case Step::Kind::Start:
        StartWorker(run, step.job, step.channelId);
        break;
      default:
        StopWorker(*run, step);
    }
  }
}

// A file that cannot be written costs requests for whole documents, and nothing else.
void LeaveWeb(RefreshRun& run) {
  run.web.pool.CloseIdle();
  (void)run.web.memory.Save([&run](int channelId) {
    const MutexLock lock(run.lock);
    return run.contents.empty() || run.contents.contains(channelId);
  });
}

// True when nothing came into the queue since the run ended; then the monitor may go.
bool LeaveRun(RefreshRun& run) {
  const MutexLock lock(run.lock);
  if (run.stopping) run.queue.RemoveWaiting();
  run.monitorRuns = run.queue.HasWaiting();
  return !run.monitorRuns;
}

}  // namespace

void RunRefreshMonitor(const std::shared_ptr<RefreshRun>& run) {
  LowerThreadPriority();
  do {
    run->host.Send(kMessageRefreshBegan, 0, 0);
    run->web.memory.Load();
    WorkOffQueue(run);
    LeaveWeb(*run);
    run->frame.Send(kMessageChannelResult, kRunEnded, 0);
    run->host.Send(kMessageRefreshEnded, 0, 0);
  } while (!LeaveRun(*run));
}

}  // namespace feedloom
