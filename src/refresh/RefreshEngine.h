// Refreshes channels on threads.
//
//   Enqueue ... StartRefresh -> a monitor thread -> at most five workers, one a channel:
//   download -> parse -> store -> a message to the frame
#pragma once

#include <memory>
#include <span>
#include <thread>
#include <vector>

#include "refresh/RefreshRun.h"

namespace feedloom {

// A process has at most one engine for a work folder. Only the thread that constructed the engine,
// its owner, may call its functions, except IsChannelQueued, IsAnyChannelQueued, Sums, LastVisit
// and Enqueue, which any thread may call.
//
// The engine sends `frame` kMessageChannelWorker (when a worker begins, and when one is stopped at
// the time limit), kMessageChannelInserted and kMessageChannelResult. It sends `host`
// kMessageRefreshBegan, kMessageRefreshProgress and kMessageRefreshEnded. Messages come from the
// engine's threads. A target that passes them on to the owner's thread must answer at once while
// the owner is inside Stop, which waits for the sender.
class RefreshEngine {
 public:
  // Removes the temporary files that a crash has left in the work folder. The targets must outlive
  // the engine. `services` and what it refers to must outlive every worker that Stop has detached.
  RefreshEngine(SharedServices services, MessageTarget& frame, MessageTarget& host,
                const RefreshLimits& limits = {}, NewPostsReport newPosts = {});
  ~RefreshEngine();
  RefreshEngine(const RefreshEngine&) = delete;
  RefreshEngine& operator=(const RefreshEngine&) = delete;

  // Appends those of `entries` to the queue whose channels are not queued or being refreshed.
  void Enqueue(std::vector<Channel> entries);

  // Starts a run for the queued channels. During a run does nothing: that run takes them. Does
  // nothing either when the queue is empty, or after Stop. A run goes on with fewer workers when
  // the system refuses it a thread; when it gets none, it drops its queue and reports that by the
  // store.
  void StartRefresh();

  // Returns whether the channel waits in the queue or is being refreshed.
  bool IsChannelQueued(int channelId) const;
  // Returns whether IsChannelQueued holds for one of `channelIds`, taking the lock once.
  bool IsAnyChannelQueued(std::span<const int> channelIds) const;

  // Ends the run under way and returns at once: drops the entries that wait, and asks the workers
  // to stop. Posts stored so far stay. A channel that was stopped keeps the state of its last
  // refresh. The run's end is announced when the workers that store posts have ended; what is
  // queued meanwhile is refreshed by a run of its own behind it. Without a run does nothing.
  void StopRun();

  // What the run under way, or the latest one, has done. At kRunEnded it is the run's result.
  RefreshSums Sums() const;

  // Returns what the channel's server last said, or why it could not be asked. What other programs
  // have learnt is read when the engine is made and when a run begins.
  FeedVisit LastVisit(const Channel& channel) const;

  // Ends the run and refuses further ones: discards the entries that wait, stops the workers, and
  // waits for them until RefreshLimits::stopTimeout, or as long as a message is being sent.
  // Detaches workers that run longer. Posts stored so far stay. A second call does nothing.
  void Stop();

 private:
  const std::shared_ptr<RefreshRun> run_;
  std::thread monitor_;
};

}  // namespace feedloom
