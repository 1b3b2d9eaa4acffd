#include "ctl/RefreshProgress.h"

#include <fmt/core.h>

#include <algorithm>
#include <utility>

#include "ctl/FaultJson.h"
#include "ctl/Session.h"
#include "fetch/FaultWords.h"
#include "threads/Messages.h"

namespace feedloom {
// What became of the channel: why it failed (empty when it did not), and the numbers of its posts.
std::string RefreshProgress::Words(const Channel& channel, std::string_view failure) {
  std::string words(failure);
  const auto add = [&words](int count, std::string_view what) {
    words += fmt::format("{}{} {}", words.empty() ? "" : ", ", count, what);
  };
  if (failure.empty() || channel.newPosts > 0) add(channel.newPosts, "new");
  if (channel.missing > 0) add(channel.missing, "not stored");
  return words;
}

RefreshProgress::RefreshProgress(Session& session, const std::vector<ChannelRow>& channels)
    : session_(session), started_(std::chrono::steady_clock::now()), line_(!session.WantsJson()) {
  for (const ChannelRow& channel : channels) {
    channels_[channel.id] = {session.Utf8(channel.title), channel};
  }
  if (!channels_.empty()) ShowHowFar();
}

std::intptr_t RefreshProgress::Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) {
  const MutexLock lock(mutex_);
  if (message == kMessageChannelWorker) OnWorker(static_cast<int>(wParam));
  if (message != kMessageChannelResult) return 0;
  const int result = static_cast<int>(wParam);
  if (result == kRunEnded) {
    EndRun();
  } else {
    End(static_cast<int>(lParam), ResultWords(result), result != kChannelRefreshed);
  }
  return 0;
}

// The message comes when a worker begins, and a second time when it is stopped at its time limit.
void RefreshProgress::OnWorker(int channelId) {
  Channel& channel = channels_[channelId];
  channel.stopped = std::exchange(channel.began, true);
}

void RefreshProgress::CountPosts(int channelId, int stored, int missing) {
  const MutexLock lock(mutex_);
  channels_[channelId].newPosts += stored;
  channels_[channelId].missing += missing;
  newPosts_ += stored;
  missing_ += missing;
}

void RefreshProgress::EndRun() {
  for (const auto& [id, channel] : channels_) {
    if (channel.stopped) End(id, "stopped, it took too long", true);
  }
  runEnded_ = true;
  changed_.notify_all();
}

void RefreshProgress::End(int channelId, std::string_view result, bool failed) {
  Channel& channel = channels_[channelId];
  channel.ended = true;
  if (failed) ++failures_;
  const FeedFault fault = visitOf_(channel.entry).fault;
  if (session_.WantsJson()) {
    lines_.push_back({{"id", channelId},
                      {"title", channel.title},
                      {"result", result},
                      {"new", channel.newPosts},
                      {"notStored", channel.missing}});
    if (fault.kind != FeedFaultKind::None) lines_.back()["fault"] = FaultJson(fault);
    return;
  }
  const std::string why =
      fault.kind == FeedFaultKind::None ? std::string(result) : FaultWords(fault);
  line_.Wipe();
  PrintLine(fmt::format("{}: {}", OneLine(channel.title), Words(channel, failed ? why : "")));
  ShowHowFar();
}

void RefreshProgress::ShowHowFar() const {
  const auto done =
      std::ranges::count_if(channels_, [](const auto& each) { return each.second.ended; });
  line_.Show(fmt::format("{} of {}", done, channels_.size()));
}

void RefreshProgress::Wait() {
  const MutexLock lock(mutex_);
  while (!runEnded_) changed_.wait(mutex_);
}

void RefreshProgress::PrintSummary() const {
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - started_;
  const MutexLock lock(mutex_);
  if (session_.WantsJson()) {
    PrintJson({{"channels", lines_},
               {"newPosts", newPosts_},
               {"notStored", missing_},
               {"failures", failures_},
               {"seconds", seconds.count()}});
    return;
  }
  line_.Wipe();
  const std::string missing = missing_ == 0 ? "" : fmt::format("{} not stored, ", missing_);
  PrintLine(fmt::format("{}, {}, {}{}, {:.1f} seconds", Counted(channels_.size(), "channel"),
                        Counted(newPosts_, "new post"), missing, Counted(failures_, "failure"),
                        seconds.count()));
}

bool RefreshProgress::AllRefreshed() const {
  const MutexLock lock(mutex_);
  return failures_ == 0;
}

}  // namespace feedloom
