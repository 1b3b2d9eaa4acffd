#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/MessageTarget.h"
#include "platform/Mutex.h"

namespace feedloom {

struct SentMessage {
  unsigned message = 0;
  std::intptr_t wParam = 0;
  std::intptr_t lParam = 0;

  bool operator==(const SentMessage&) const = default;
};

// Keeps all messages that it is sent, in order. Any thread may use it.
class RecordingTarget : public MessageTarget {
 public:
  using Handler = std::function<std::intptr_t(const SentMessage&)>;
  using Predicate = std::function<bool(const SentMessage&)>;

  // Without a handler each Send answers 0. A handler runs on the sending thread, outside all locks,
  // and gives the answer; the message is recorded when it has returned. Set it before the sending
  // threads start.
  explicit RecordingTarget(Handler handler = {}) : handler_(std::move(handler)) {}

  std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) override;

  std::vector<SentMessage> All() const;
  int Count(unsigned message) const;
  int Count(const Predicate& isWanted) const;

  // Blocks until such a message has been recorded, now or before; false when it does not come.
  [[nodiscard]] bool WaitFor(unsigned message, std::intptr_t wParam, std::intptr_t lParam,
                             std::chrono::milliseconds timeout = std::chrono::seconds(20)) const;
  // Blocks until `count` such messages have been recorded. `isWanted` must not call this object.
  [[nodiscard]] bool WaitFor(const Predicate& isWanted,
                             std::chrono::milliseconds timeout = std::chrono::seconds(20),
                             int count = 1) const;

 private:
  const Handler handler_;
  mutable Mutex mutex_;
  mutable std::condition_variable_any recorded_;
  std::vector<SentMessage> messages_ FEEDLOOM_GUARDED_BY(mutex_);
};

}  // namespace feedloom
