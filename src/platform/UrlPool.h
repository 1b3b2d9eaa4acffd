#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Mutex.h"

namespace feedloom {

struct TransferHandles;

// Connections that stay open for the next transfer to the same server. What a transfer has taken is
// its own until it gives it back. Any thread may use a pool.
class TransferPool {
 public:
  TransferPool();
  ~TransferPool();
  TransferPool(const TransferPool&) = delete;
  TransferPool& operator=(const TransferPool&) = delete;

  // The handles that talked to `origin` last, else those that have been idle longest, else new
  // ones.
  std::unique_ptr<TransferHandles> Take(const std::string& origin);
  void GiveBack(std::unique_ptr<TransferHandles> handles);

  // Closes the connections that no transfer is using.
  void CloseIdle();

 private:
  Mutex mutex_;
  std::vector<std::unique_ptr<TransferHandles>> idle_ FEEDLOOM_GUARDED_BY(mutex_);
};

}  // namespace feedloom
