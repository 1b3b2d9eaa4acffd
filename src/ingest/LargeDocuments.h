#pragma once

#include <condition_variable>
#include <stop_token>

#include "platform/Mutex.h"

namespace feedloom {

// The place in memory for one large document: of several workers that read such a one, the others
// wait. Any thread may use it.
class LargeDocuments {
 public:
  // One worker's share in it, which ends with the object.
  class Turn {
   public:
    explicit Turn(LargeDocuments& place) : place_(place) {}
    ~Turn() { LetGo(); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    // Waits until the place is this worker's; false when `stop` came before.
    bool Take(std::stop_token stop);
    void LetGo();

   private:
    LargeDocuments& place_;
    bool has_ = false;
  };

 private:
  Mutex mutex_;
  std::condition_variable_any changed_;
  bool taken_ FEEDLOOM_GUARDED_BY(mutex_) = false;
};

}  // namespace feedloom
