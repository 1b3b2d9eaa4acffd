#include "platform/ThreadPriority.h"

#include <sys/resource.h>
#include <unistd.h>

namespace feedloom {

void LowerThreadPriority() {
  constexpr int kBelowNormal = 5;
  // On Linux the nice value belongs to the thread and is inherited by the threads it starts. A
  // system that refuses it only loses the courtesy.
  setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), kBelowNormal);
}

}  // namespace feedloom
