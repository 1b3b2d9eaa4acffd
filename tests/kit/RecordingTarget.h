#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

#include "threads/MessageTarget.h"

namespace feedloom {

struct SentMessage {
  unsigned message = 0;
  std::intptr_t wParam = 0, lParam = 0;

  bool operator==(const SentMessage&) const = default;
};

// Keeps all messages that it is sent, in order. Any thread may use it.
class RecordingTarget : public MessageTarget {
 public:
  // Gives the answer, on the sending thread and outside all locks; the message is recorded then.
  using Handler = std::function<std::intptr_t(const SentMessage&)>;
  explicit RecordingTarget(Handler handler = [](auto&) { return 0; })
      : handler_(std::move(handler)) {}

  std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) override {
    const SentMessage sent{message, wParam, lParam};
    const std::intptr_t answer = handler_(sent);
    const std::lock_guard lock(mutex_);
    messages_.push_back(sent);
    recorded_.notify_all();
    return answer;
  }

  std::vector<SentMessage> All() const {
    const std::lock_guard lock(mutex_);
    return messages_;
  }
  auto Count(unsigned message) const {
    return std::ranges::count(All(), message, &SentMessage::message);
  }
  // Blocks until `count` such messages have been recorded; false when they never are.
  [[nodiscard]] bool WaitFor(unsigned message, int count = 1) const {
    std::unique_lock lock(mutex_);
    return recorded_.wait_for(lock, std::chrono::seconds(20), [&] {
      return std::ranges::count(messages_, message, &SentMessage::message) >= count;
    });
  }

 private:
  const Handler handler_;
  mutable std::mutex mutex_;
  mutable std::condition_variable recorded_;
  std::vector<SentMessage> messages_;
};

}  // namespace feedloom
