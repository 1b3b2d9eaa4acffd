#include "threads/Mutex.h"

namespace feedloom {

void Mutex::lock() FEEDLOOM_NO_THREAD_SAFETY_ANALYSIS {
  std::unique_lock guard(guard_);
  const std::uint64_t ticket = nextTicket_++;
  turn_.wait(guard, [&] { return ticket == served_; });
}

// Notifies while `guard_` is held: the thread that locks next may destroy the mutex.
void Mutex::unlock() FEEDLOOM_NO_THREAD_SAFETY_ANALYSIS {
  const std::lock_guard guard(guard_);
  ++served_;
  turn_.notify_all();
}

}  // namespace feedloom
