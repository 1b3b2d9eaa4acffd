#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <utility>
#include <vector>

#include "threads/Mutex.h"

namespace feedloom {

// Work that other threads hand to the thread of a test, until the test does it.
class Inbox {
 public:
  void Put(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    works_.push_back(std::move(work));
    changed_.notify_all();
  }

  // False when none came.
  [[nodiscard]] bool WaitForWork() {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(20), [this] { return !works_.empty(); });
  }

  // What has come so far, on this thread.
  void DoAll() {
    std::unique_lock lock(mutex_);
    const auto works = std::exchange(works_, {});
    lock.unlock();
    for (const auto& work : works) work();
  }

  // Does what comes until `isDone`; false when it never is.
  [[nodiscard]] bool DoUntil(const std::function<bool()>& isDone) {
    while (!isDone()) {
      if (!WaitForWork()) return false;
      DoAll();
    }
    return true;
  }

 private:
  Mutex mutex_;  // of all that follows
  std::condition_variable_any changed_;
  std::vector<std::function<void()>> works_;
};

}  // namespace feedloom
