#pragma once

#include <memory>
#include <string>
#include <vector>

#include "threads/Mutex.h"

namespace feedloom {

struct TransferHandles;

// Keeps connections open for later transfers to the same server. A transfer takes handles, uses
// them alone, and gives them back. Any thread may use a pool.
class TransferPool {
 public:
  TransferPool();
  ~TransferPool();
  TransferPool(const TransferPool&) = delete;
  TransferPool& operator=(const TransferPool&) = delete;

  // Idle handles whose last transfer went to `origin` (scheme, host and port); otherwise those that
  // have been idle longest; otherwise new ones. The caller owns them until GiveBack.
  std::unique_ptr<TransferHandles> Take(const std::string& origin);
  void GiveBack(std::unique_ptr<TransferHandles> handles);

  // Closes the connections of all idle handles.
  void CloseIdle();

 private:
  Mutex mutex_;
  std::vector<std::unique_ptr<TransferHandles>> idle_ FEEDLOOM_GUARDED_BY(mutex_);
};

}  // namespace feedloom
