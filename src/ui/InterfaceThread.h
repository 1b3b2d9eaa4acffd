// How other threads reach the interface thread: with a piece of work, or with a message.
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>

#include "platform/MessageTarget.h"
#include "platform/Mutex.h"

class QObject;

namespace feedloom {

// Made and closed on the interface thread, and destroyed anywhere when it is closed. Threads that
// may outlive its maker hold it by a shared pointer and may call it for as long as they like: once
// it is closed they get their answer at once, and nothing more is run.
class InterfaceThread {
 public:
  InterfaceThread();
  ~InterfaceThread();
  InterfaceThread(const InterfaceThread&) = delete;
  InterfaceThread& operator=(const InterfaceThread&) = delete;

  // Runs `work` on the interface thread: at once there, and soon after the call when another thread
  // makes it, which goes on meanwhile.
  void Run(std::function<void()> work);

  // The same, and comes back when `work` is done, or when this is closed meanwhile: `work` may
  // still be running then, so it owns all that it touches.
  void RunAndWait(std::function<void()> work);

  // From now on nothing is run, and no caller waits.
  void Close();

 private:
  struct Visit;

  bool IsHere() const FEEDLOOM_REQUIRES(mutex_);

  Mutex mutex_;
  std::condition_variable_any changed_;
  std::unique_ptr<QObject> receiver_ FEEDLOOM_GUARDED_BY(mutex_);  // null once closed
};

// Has messages handled on the interface thread, wherever they are sent.
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
