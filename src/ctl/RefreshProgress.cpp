#include "ctl/RefreshProgress.h"

#include <fmt/core.h>
#include <unistd.h>

#include "ctl/Session.h"
#include "platform/Messages.h"

namespace feedloom {
namespace {

template <typename Count>
std::string Counted(Count count, std::string_view noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

}  // namespace

RefreshProgress::RefreshProgress(Session& session, const std::vector<ChannelRow>& channels)
    : session_(session),
      started_(std::chrono::steady_clock::now()),
      drawsBar_(!session.WantsJson() && isatty(STDOUT_FILENO) != 0) {
  for (const ChannelRow& channel : channels) {
    channels_[channel.id] = {session.Utf8(channel.title)};
  }
}

std::intptr_t RefreshProgress::Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) {
  if (message == kMessageChannelWorker) OnWorker(static_cast<int>(wParam));
  if (message != kMessageChannelResult) return 0;
  if (wParam != kRunEnded) {
    const int result = static_cast<int>(wParam);
    End(static_cast<int>(lParam), ResultWords(result), result != kChannelRefreshed);
    return 0;
  }
  const MutexLock lock(mutex_);
  runEnded_ = true;
  changed_.notify_all();
  return 0;
}

// The message comes when a worker begins, and a second time when it is stopped at its time limit.
void RefreshProgress::OnWorker(int channelId) {
  {
    const MutexLock lock(mutex_);
    Channel& channel = channels_[channelId];
    if (!channel.began) {
      channel.began = true;
      return;
    }
  }
  End(channelId, "stopped, it took too long", true);
}

void RefreshProgress::CountNew(int channelId, int newPosts) {
  const MutexLock lock(mutex_);
  channels_[channelId].newPosts += newPosts;
  newPosts_ += newPosts;
}

void RefreshProgress::End(int channelId, std::string_view result, bool failed) {
  const MutexLock lock(mutex_);
  Channel& channel = channels_[channelId];
  channel.ended = true;
  if (failed) ++failures_;
  if (session_.WantsJson()) {
    lines_.push_back({{"id", channelId},
                      {"title", channel.title},
                      {"result", result},
                      {"new", channel.newPosts}});
    return;
  }
  if (drawsBar_) fmt::print("\r\x1b[K");
  const std::string title = OneLine(channel.title);
  PrintLine(failed ? fmt::format("{}: {}", title, result)
                   : fmt::format("{}: {} new", title, channel.newPosts));
  if (drawsBar_) DrawBar();
}

void RefreshProgress::DrawBar() const {
  constexpr std::size_t kWidth = 40;
  std::size_t done = 0;
  for (const auto& [id, channel] : channels_) done += channel.ended ? 1 : 0;
  const std::size_t filled = done * kWidth / channels_.size();
  fmt::print("[{}{}] {}/{}", std::string(filled, '#'), std::string(kWidth - filled, ' '), done,
             channels_.size());
  std::fflush(stdout);
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
               {"failures", failures_},
               {"seconds", seconds.count()}});
    return;
  }
  if (drawsBar_) fmt::print("\r\x1b[K");
  PrintLine(fmt::format("{}, {}, {}, {:.1f} seconds", Counted(channels_.size(), "channel"),
                        Counted(newPosts_, "new post"), Counted(failures_, "failure"),
                        seconds.count()));
}

bool RefreshProgress::AllRefreshed() const {
  const MutexLock lock(mutex_);
  return failures_ == 0;
}

}  // namespace feedloom
