// What the threads of a refresh share: the queue, the running workers, and the lock around both.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <stop_token>
#include <thread>
#include <unordered_map>
#include <vector>

#include "ingest/IngestServices.h"
#include "ingest/RefreshQueue.h"
#include "ingest/RefreshWorker.h"
#include "platform/MessageTarget.h"
#include "platform/Messages.h"
#include "store/Channels.h"

namespace feedloom {

// Told, on a worker's thread and before the channel's result, how many posts of it are new.
using NewPostsReport = std::function<void(int channelId, int newPosts)>;

struct RefreshLimits {
  std::ptrdiff_t workers = 5;                   // at most so many channels at once
  std::chrono::milliseconds timeLimit{30'000};  // then a worker is stopped
  std::chrono::milliseconds patience{400};      // so long Stop waits for the workers
};

using SteadyTime = std::chrono::steady_clock::time_point;

// One worker. All but `entry`, `stored`, `stop` and `started` belongs under the run's lock;
// `channelId` is written by the worker alone, which may read it without.
struct RefreshJob {
  enum class Phase {
    Working,    // may be stopped
    Reporting,  // a message of it is being sent: it is let finish
    Ended,      // has nothing more to do or to say
    Dropped,    // stopped: what it still does is not passed on
  };

  RefreshEntry entry;
  ChannelContents stored;  // the channel as the store had it; of none: without posts
  std::stop_source stop;
  SteadyTime started;
  int channelId = 0;
  Phase phase = Phase::Working;
  ChannelResult resultIfStopped = kDownloadFailed;
  bool threadEnded = false;  // the thread has let go of the run and only returns
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
        web{FeedMemory(services->feedMemory)},
        lock(services->store->Lock()) {}

  const SharedServices services;
  MessageTarget& frame;
  MessageTarget& host;
  const RefreshLimits limits;
  const NewPostsReport newPosts;  // may be empty
  WorkersWeb web;

  Mutex& lock;
  std::condition_variable_any changed;  // notified when anything below changes
  RefreshQueue queue FEEDLOOM_GUARDED_BY(lock);
  std::vector<SharedJob> jobs FEEDLOOM_GUARDED_BY(lock);  // until their thread was joined
  // What the store says of the channels that were queued when it was asked: nothing as long as no
  // server is remembered.
  std::unordered_map<int, ChannelContents> contents FEEDLOOM_GUARDED_BY(lock);
  bool contentsAreFresh FEEDLOOM_GUARDED_BY(lock) = false;
  bool monitorRuns FEEDLOOM_GUARDED_BY(lock) = false;
  bool stopping FEEDLOOM_GUARDED_BY(lock) = false;

  // Joins the threads that have ended and forgets their jobs.
  void Reap() FEEDLOOM_REQUIRES(lock);
};

}  // namespace feedloom
