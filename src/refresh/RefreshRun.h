// The state that the threads of a refresh share: the queue, the workers, and the lock that guards
// both.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <stop_token>
#include <thread>
#include <unordered_map>
#include <vector>

#include "fetch/FetchServices.h"
#include "refresh/RefreshQueue.h"
#include "refresh/RefreshSums.h"
#include "refresh/RefreshWorker.h"
#include "store/Channels.h"
#include "threads/MessageTarget.h"
#include "threads/Messages.h"

namespace feedloom {

// Called on a worker's thread, before the channel's result is sent, with the numbers of new posts
// that were stored and that could not be. Called behind the message that a channel was stopped at
// the time limit, too, and before the run's end.
using NewPostsReport = std::function<void(int channelId, int stored, int missing)>;

struct RefreshLimits {
  std::ptrdiff_t workers = 5;                   // how many channels are refreshed at once
  std::chrono::milliseconds timeLimit{30'000};  // after which a worker is stopped
  std::chrono::milliseconds stopTimeout{400};   // how long Stop waits for workers
};

// One worker. The run's lock guards all members except `entry`, `stored`, `stop` and `started`,
// which do not change once the thread runs. Only the worker writes `channelId`, so it may read it
// without the lock.
struct RefreshJob {
  enum class Phase {
    Working,  // may be stopped
    Ended,    // has sent its result
    Dropped,  // was stopped, and its entry removed: sends no further message
  };

  Channel entry;
  ChannelContents stored;  // the channel's state before the refresh; without posts when unknown
  std::stop_source stop;
  std::chrono::steady_clock::time_point started;
  int channelId = 0;
  Phase phase = Phase::Working;
  bool isReporting = false;  // the worker is sending a message, and is stopped only after it
  ChannelResult resultIfStopped = kDownloadFailed;
  bool threadEnded = false;  // the thread does not use the run or its lock any more
  std::thread thread;
};

using SharedJob = std::shared_ptr<RefreshJob>;

struct RefreshRun {
  RefreshRun(SharedServices theServices, MessageTarget& theFrame, MessageTarget& theHost,
             const RefreshLimits& theLimits, NewPostsReport theNewPosts)
      : services(std::move(theServices)),
        frame(theFrame),
        host(theHost),
        limits(theLimits),
        newPosts(std::move(theNewPosts)),
        resources{FeedMemory(services->feedMemory)},
        lock(services->store->Lock()) {}

  const SharedServices services;
  MessageTarget& frame;
  MessageTarget& host;
  const RefreshLimits limits;
  const NewPostsReport newPosts;  // may be empty
  RefreshResources resources;

  Mutex& lock;
  std::condition_variable_any changed;  // notified when anything below changes
  RefreshQueue queue FEEDLOOM_GUARDED_BY(lock);
  std::vector<SharedJob> jobs FEEDLOOM_GUARDED_BY(lock);  // removed when their thread is joined
  // The store's channels by id. Stays empty while FeedMemory is empty: no request can be
  // conditional then. Not fresh: channels were queued since it was read.
  std::unordered_map<int, ChannelContents> contents FEEDLOOM_GUARDED_BY(lock);
  bool contentsAreFresh FEEDLOOM_GUARDED_BY(lock) = false;
  // How many workers may run: fewer than the limit after the system has refused a thread.
  std::ptrdiff_t workers FEEDLOOM_GUARDED_BY(lock) = limits.workers;
  RefreshSums sums FEEDLOOM_GUARDED_BY(lock);
  bool monitorRuns FEEDLOOM_GUARDED_BY(lock) = false;
  bool stopping FEEDLOOM_GUARDED_BY(lock) = false;

  // Begins to count for a run over the entries in the queue.
  void BeginCount() FEEDLOOM_REQUIRES(lock) { sums = {.total = queue.Size()}; }

  // Removes the entries of a channel that has ended, and counts them.
  void Leave(int channelId, bool hasFailed) FEEDLOOM_REQUIRES(lock);

  // Drops the workers that have not ended, and returns all of them. They are to be asked to stop
  // without the lock.
  std::vector<SharedJob> DropJobs() FEEDLOOM_REQUIRES(lock);

  // Drops the entries that wait, because the system has refused a thread, and reports that.
  void GiveUp() FEEDLOOM_EXCLUDES(lock);

  // Joins the threads that have ended and forgets their jobs.
  void Reap() FEEDLOOM_REQUIRES(lock);
};

}  // namespace feedloom
