#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <vector>

#include "platform/Mutex.h"

namespace feedloom {

// Work that other threads hand to the thread of a test, until the test does it.
class Inbox {
 public:
  void Put(std::function<void()> work) {
    const MutexLock lock(mutex_);
    works_.push_back(std::move(work));
    changed_.notify_all();
  }

  // False when none came.
  [[nodiscard]] bool WaitForWork() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    const MutexLock lock(mutex_);
    while (works_.empty())
      if (changed_.wait_until(mutex_, deadline) == std::cv_status::timeout) break;
    return !works_.empty();
  }

  // What has come so far, on this thread.
  void DoAll() {
    std::vector<std::function<void()>> works;
    {
      const MutexLock lock(mutex_);
      works.swap(works_);
    }
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
  Mutex mutex_;
  std::condition_variable_any changed_;
  std::vector<std::function<void()>> works_ FEEDLOOM_GUARDED_BY(mutex_);
};

}  // namespace feedloom
