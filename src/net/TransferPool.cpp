#include "net/TransferPool.h"

#include <algorithm>

#include "net/UrlHandle.h"

namespace feedloom {

TransferPool::TransferPool() = default;
TransferPool::~TransferPool() = default;

std::unique_ptr<TransferHandles> TransferPool::Take(const std::string& origin) {
  std::unique_ptr<TransferHandles> taken;
  {
    const MutexLock lock(mutex_);
    auto place = std::ranges::find(idle_, origin, &TransferHandles::origin);
    if (place == idle_.end()) place = idle_.begin();
    if (place != idle_.end()) {
      taken = std::move(*place);
      idle_.erase(place);
    }
  }
  if (!taken) taken = std::make_unique<TransferHandles>();
  taken->origin = origin;
  return taken;
}

void TransferPool::GiveBack(std::unique_ptr<TransferHandles> handles) {
  const MutexLock lock(mutex_);
  idle_.push_back(std::move(handles));
}

void TransferPool::CloseIdle() {
  std::vector<std::unique_ptr<TransferHandles>> closed;
  const MutexLock lock(mutex_);
  closed.swap(idle_);
}

}  // namespace feedloom
