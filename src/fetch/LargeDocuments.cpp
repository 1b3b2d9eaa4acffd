#include "fetch/LargeDocuments.h"

#include <malloc.h>

#include <functional>
#include <utility>

namespace feedloom {

bool LargeDocuments::Turn::Acquire(std::stop_token stop) {
  if (has_) return true;
  const std::stop_callback wake(stop, [this] {
    const MutexLock lock(place_.mutex_);
    place_.changed_.notify_all();
  });
  const MutexLock lock(place_.mutex_);
  while (place_.taken_ && !stop.stop_requested()) place_.changed_.wait(place_.mutex_);
  if (stop.stop_requested()) return false;
  return has_ = place_.taken_ = true;
}

void LargeDocuments::Turn::Release() {
  if (!std::exchange(has_, false)) return;
  // The allocator keeps freed memory for each thread: without this call the next worker's document
  // would come on top of this one's.
  malloc_trim(0);
  const MutexLock lock(place_.mutex_);
  place_.taken_ = false;
  place_.changed_.notify_all();
}

}  // namespace feedloom
