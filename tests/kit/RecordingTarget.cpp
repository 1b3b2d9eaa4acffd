#include "kit/RecordingTarget.h"

#include <algorithm>

namespace feedloom {

std::intptr_t RecordingTarget::Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) {
  const SentMessage sent{message, wParam, lParam};
  const std::intptr_t answer = handler_ ? handler_(sent) : 0;
  const MutexLock lock(mutex_);
  messages_.push_back(sent);
  recorded_.notify_all();
  return answer;
}

std::vector<SentMessage> RecordingTarget::All() const {
  const MutexLock lock(mutex_);
  return messages_;
}

int RecordingTarget::Count(unsigned message) const {
  return Count([message](const SentMessage& sent) { return sent.message == message; });
}

int RecordingTarget::Count(const Predicate& isWanted) const {
  const MutexLock lock(mutex_);
  return static_cast<int>(std::ranges::count_if(messages_, isWanted));
}

bool RecordingTarget::WaitFor(unsigned message, std::intptr_t wParam, std::intptr_t lParam,
                              std::chrono::milliseconds timeout) const {
  const SentMessage wanted{message, wParam, lParam};
  return WaitFor([&wanted](const SentMessage& sent) { return sent == wanted; }, timeout);
}

bool RecordingTarget::WaitFor(const Predicate& isWanted, std::chrono::milliseconds timeout,
                              int count) const {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  const MutexLock lock(mutex_);
  while (std::ranges::count_if(messages_, isWanted) < count) {
    if (recorded_.wait_until(mutex_, deadline) == std::cv_status::timeout) {
      return std::ranges::count_if(messages_, isWanted) >= count;
    }
  }
  return true;
}

}  // namespace feedloom
