// The front door of ingestion: the refresh of channels on threads of their own.
//
//   Enqueue ... StartRefresh -> a monitor thread -> at most five workers, one a channel:
//   download -> parse -> store -> a message to the frame
#pragma once

#include <memory>
#include <span>
#include <thread>
#include <vector>

#include "ingest/RefreshRun.h"

namespace feedloom {

// One object a process and work folder. Its functions belong to the thread that made it, except
// IsChannelQueued, IsAnyChannelQueued, Enqueue and EnqueueAll, which any thread may call.
//
// To `frame` go kMessageChannelWorker (a worker began, or was stopped after the time limit),
// kMessageChannelInserted, kMessageChannelResult; to `host` kMessageRefreshBegan and
// kMessageRefreshEnded. They come from the run's threads; a target that hands them to the thread of
// this object must answer at once while that thread is inside Stop.
class RefreshEngine {
 public:
  // Removes the temporary files that a crash left in the work folder. The targets outlive the
  // object; `services` may live on in a worker that was given up, and so may all it refers to.
  RefreshEngine(SharedServices services, MessageTarget& frame, MessageTarget& host,
                const RefreshLimits& limits = {}, NewPostsReport newPosts = {});
  ~RefreshEngine();
  RefreshEngine(const RefreshEngine&) = delete;
  RefreshEngine& operator=(const RefreshEngine&) = delete;

  // False when that channel is queued or being refreshed already.
  bool Enqueue(RefreshEntry entry);
  // Many at once, waiting for the lock once; those that are queued already are left out.
  void EnqueueAll(std::vector<RefreshEntry> entries);

  // Sees to it that the queue is being worked off: starts a monitor unless one runs, which then
  // takes the new entries. Does nothing when the queue is empty.
  void StartRefresh();

  // True while the channel waits or is being refreshed.
  bool IsChannelQueued(int channelId) const;
  // The same of one of many, waiting for the lock once.
  bool IsAnyChannelQueued(std::span<const int> channelIds) const;

  // Ends the run for good, in well under a second: entries that wait are discarded, workers are
  // stopped, and one that does not come back is given up. Posts stored so far stay. A second call
  // does nothing.
  void Stop();

 private:
  const std::shared_ptr<RefreshRun> run_;
  std::thread monitor_;
};

}  // namespace feedloom
