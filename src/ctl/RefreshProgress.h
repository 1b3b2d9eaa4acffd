#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <string>
#include <string_view>

#include "ctl/Output.h"
#include "platform/MessageTarget.h"
#include "platform/Mutex.h"
#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

class Session;

// Shows the progress of a refresh: prints a line for each channel that has ended, draws a bar when
// stdout is a terminal, and sums up at the end.
class RefreshProgress : public MessageTarget {
 public:
  // `channels` are the rows, read before the run, of those that it refreshes. `session` must
  // outlive the object.
  RefreshProgress(Session& session, const std::vector<ChannelRow>& channels);

  // Receives the engine's messages. Any thread may call it.
  std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) override;

  // Adds `newPosts` to the channel's new posts. Any thread may call it.
  void CountNew(int channelId, int newPosts);

  // Blocks until the run has ended.
  void Wait();

  // PrintSummary and AllRefreshed may be called after Wait.
  void PrintSummary() const;
  bool AllRefreshed() const;

 private:
  struct Channel {
    std::string title;  // UTF-8
    int newPosts = 0;
    bool began = false;
    bool ended = false;
  };

  void OnWorker(int channelId);
  void End(int channelId, std::string_view result, bool failed);
  void DrawBar() const FEEDLOOM_REQUIRES(mutex_);

  Session& session_;
  const std::chrono::steady_clock::time_point started_;
  const bool drawsBar_;

  mutable Mutex mutex_;
  std::condition_variable_any changed_;
  std::map<int, Channel> channels_ FEEDLOOM_GUARDED_BY(mutex_);
  Json lines_ FEEDLOOM_GUARDED_BY(mutex_) = Json::array();
  int newPosts_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  std::size_t failures_ FEEDLOOM_GUARDED_BY(mutex_) = 0;
  bool runEnded_ FEEDLOOM_GUARDED_BY(mutex_) = false;
};

}  // namespace feedloom
