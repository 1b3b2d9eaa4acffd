#pragma once

#include <pthread.h>

#include <cstddef>

namespace feedloom {

// While an object lives, the system refuses this process every new thread: the stack that a thread
// gets by default does not fit into memory. Threads that run already go on.
class ThreadRefusal {
 public:
  ThreadRefusal() {
    pthread_getattr_default_np(&before_);
    pthread_attr_t huge = before_;
    pthread_attr_setstacksize(&huge, std::size_t{1} << 50);
    pthread_setattr_default_np(&huge);
  }
  ~ThreadRefusal() { pthread_setattr_default_np(&before_); }
  ThreadRefusal(const ThreadRefusal&) = delete;
  ThreadRefusal& operator=(const ThreadRefusal&) = delete;

 private:
  pthread_attr_t before_{};
};

}  // namespace feedloom
