#pragma once

#include <condition_variable>
#include <stop_token>

#include "threads/Mutex.h"

namespace feedloom {

// Lets one worker at a time hold a large document in memory; other workers with a large document
// wait. Any thread may use it.
class LargeDocuments {
 public:
  // One worker's turn, which the destructor releases. Belongs to the worker's thread.
  class Turn {
   public:
    explicit Turn(LargeDocuments& place) : place_(place) {}
    ~Turn() { Release(); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    // Waits for the turn. Returns true when the worker has it, false when `stop` came first.
    bool Acquire(std::stop_token stop);
    // Gives the turn back, if the worker has it.
    void Release();

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
