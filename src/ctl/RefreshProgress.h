#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "ctl/Output.h"
#include "ctl/ProgressLine.h"
#include "fetch/FeedMemory.h"
#include "store/Rows.h"
#include "store/Store.h"
#include "threads/MessageTarget.h"
#include "threads/Mutex.h"

namespace feedloom {

class Session;

// Shows the progress of a refresh: prints a line for each channel that has ended, below it on a
// terminal how many have, and sums up at the end.
class RefreshProgress : public MessageTarget {
 public:
  // `channels` are the rows, read before the run, of those that it refreshes. `session` must
  // outlive the object.
  RefreshProgress(Session& session, const std::vector<ChannelRow>& channels);

  // From now on `visitOf` tells the last visit of one of the channels. To be set before the run.
  void TakeVisitsFrom(std::function<FeedVisit(const feedloom::Channel& channel)> visitOf) {
    visitOf_ = std::move(visitOf);
  }

  // Receives the engine's messages. Any thread may call it.
  std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) override;

  // Adds the channel's new posts: those that were stored, and those that could not be. Any thread
  // may call it.
  void CountPosts(int channelId, int stored, int missing);

  // Blocks until the run has ended.
  void Wait();

  // PrintSummary and AllRefreshed may be called after Wait.
  void PrintSummary() const;
  bool AllRefreshed() const;

 private:
  struct Channel {
    std::string title;  // UTF-8
    feedloom::Channel entry = {};
    int newPosts = 0;
    int missing = 0;  // new posts that could not be stored
    bool began = false;
    bool stopped = false;  // at its time limit; its line waits for its last posts
    bool ended = false;
  };

  static std::string Words(const Channel& channel, std::string_view failure);
  void OnWorker(int channelId) FEEDLOOM_REQUIRES(mutex_);
  void EndRun() FEEDLOOM_REQUIRES(mutex_);
  void End(int channelId, std::string_view result, bool failed) FEEDLOOM_REQUIRES(mutex_);
  void ShowHowFar() const FEEDLOOM_REQUIRES(mutex_);

  Session& session_;
  const std::chrono::steady_clock::time_point started_;
  const ProgressLine line_;
  std::function<FeedVisit(const feedloom::Channel& channel)> visitOf_;

  mutable Mutex mutex_;
  std::condition_variable_any changed_;
  std::map<int, Channel> channels_ FEEDLOOM_GUARDED_BY(mutex_);
  Json lines_ FEEDLOOM_GUARDED_BY(mutex_) = Json::array();
  int newPosts_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  int missing_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  std::size_t failures_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  bool runEnded_ FEEDLOOM_GUARDED_BY(mutex_) = false;
};

}  // namespace feedloom
