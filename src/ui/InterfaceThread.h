// Lets other threads run functions on the interface thread and send it messages.
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>

#include "threads/MessageTarget.h"
#include "threads/Mutex.h"

class QObject;

namespace feedloom {

// Create and close it on the interface thread; once closed, any thread may destroy it. Threads that
// may outlive its creator hold it by a shared pointer. Any thread may call Run, Queue and
// RunAndWait, also after Close: they then return at once and run nothing.
class InterfaceThread {
 public:
  InterfaceThread();
  ~InterfaceThread();
  InterfaceThread(const InterfaceThread&) = delete;
  InterfaceThread& operator=(const InterfaceThread&) = delete;

  // Runs `work` on the interface thread. Called on the interface thread, it runs `work` at once;
  // called on another thread, it queues `work` and returns without waiting.
  void Run(std::function<void()> work);

  // Queues `work` and returns without running it, also on the interface thread.
  void Queue(std::function<void()> work);

  // Runs `work` on the interface thread and returns when it is done, or when Close is called
  // meanwhile. In the latter case `work` may still be running, so it must own what it uses.
  void RunAndWait(std::function<void()> work);

  // Drops all queued work and releases all waiting callers.
  void Close();

 private:
  struct Visit;

  bool IsHere() const FEEDLOOM_REQUIRES(mutex_);

  Mutex mutex_;
  std::condition_variable_any changed_;
  std::unique_ptr<QObject> receiver_ FEEDLOOM_GUARDED_BY(mutex_);  // null once closed
};

// Handles messages on the interface thread, whichever thread sends them.
class InterfaceTarget : public MessageTarget {
 public:
  using Handler = std::function<std::intptr_t(unsigned, std::intptr_t, std::intptr_t)>;

  InterfaceTarget(std::shared_ptr<InterfaceThread> thread, Handler handler)
      : thread_(std::move(thread)), handler_(std::move(handler)) {}

  std::intptr_t Send(unsigned message, std::intptr_t wParam, std::intptr_t lParam) override;

 private:
  const std::shared_ptr<InterfaceThread> thread_;
  const Handler handler_;
};

}  // namespace feedloom
