// A fair mutex for clang's thread-safety analysis. Data that a mutex guards is declared
// FEEDLOOM_GUARDED_BY(mutex); a clang build fails where such data is used without the lock.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <mutex>

#if defined(__clang__)
#define FEEDLOOM_THREAD_ATTRIBUTE(x) __attribute__((x))
#else
#define FEEDLOOM_THREAD_ATTRIBUTE(x)
#endif

#define FEEDLOOM_CAPABILITY(x) FEEDLOOM_THREAD_ATTRIBUTE(capability(x))
#define FEEDLOOM_SCOPED_CAPABILITY FEEDLOOM_THREAD_ATTRIBUTE(scoped_lockable)
#define FEEDLOOM_GUARDED_BY(x) FEEDLOOM_THREAD_ATTRIBUTE(guarded_by(x))
#define FEEDLOOM_REQUIRES(...) FEEDLOOM_THREAD_ATTRIBUTE(requires_capability(__VA_ARGS__))
#define FEEDLOOM_EXCLUDES(...) FEEDLOOM_THREAD_ATTRIBUTE(locks_excluded(__VA_ARGS__))
#define FEEDLOOM_ACQUIRE(...) FEEDLOOM_THREAD_ATTRIBUTE(acquire_capability(__VA_ARGS__))
#define FEEDLOOM_RELEASE(...) FEEDLOOM_THREAD_ATTRIBUTE(release_capability(__VA_ARGS__))
#define FEEDLOOM_NO_THREAD_SAFETY_ANALYSIS FEEDLOOM_THREAD_ATTRIBUTE(no_thread_safety_analysis)

namespace feedloom {

// Threads lock the mutex in the order in which they asked for it, so that a worker that locks it
// again and again does not keep the interface thread waiting. It meets the standard's BasicLockable
// requirements, hence the lowercase names: std::condition_variable_any can wait on it.
class FEEDLOOM_CAPABILITY("mutex") Mutex {
 public:
  void lock() FEEDLOOM_ACQUIRE();
  void unlock() FEEDLOOM_RELEASE();

 private:
  std::mutex guard_;
  std::condition_variable turn_;
  std::uint64_t nextTicket_ = 0;
  std::uint64_t served_ = 0;  // the ticket whose thread holds the mutex, or may lock it next
};

class FEEDLOOM_SCOPED_CAPABILITY MutexLock {
 public:
  explicit MutexLock(Mutex& mutex) FEEDLOOM_ACQUIRE(mutex) : mutex_(mutex) { mutex_.lock(); }
  ~MutexLock() FEEDLOOM_RELEASE() { mutex_.unlock(); }
  MutexLock(const MutexLock&) = delete;
  MutexLock& operator=(const MutexLock&) = delete;

 private:
  Mutex& mutex_;
};

}  // namespace feedloom
