#include "threads/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace feedloom {

void LowerThreadPriority() {
  constexpr int kBelowNormal = 5;
  // On Linux the nice value belongs to the thread, and the threads that it starts inherit it. A
  // failure is ignored: the thread then runs at its ordinary priority.
  setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kBelowNormal);
}

}  // namespace feedloom
