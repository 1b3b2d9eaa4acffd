#pragma once

#include <QTimer>
#include <functional>
#include <memory>

#include "store/Store.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

// Indexes texts that wait for it (store/TextIndex.h) on a background thread, a hundred a
// transaction. Interface thread only.
class TextIndexer {
 public:
  // Called with a number from 0 to 99, so many per cent of what has waited, some seconds after the
  // start of a long work and then again and again, and with 100 at the end of such a one.
  using OnProgress = std::function<void(int percent)>;

  TextIndexer(std::shared_ptr<Store> store, BackgroundJobs::Post toOwner, OnProgress onProgress);

  // Begins in some seconds, when the user has what he has come for, and looks again every minute.
  void Start();
  // Stops behind the transaction under way, for which nobody waits.
  void Stop();

 private:
  void Run();

  const std::shared_ptr<Store> store_;
  const OnProgress onProgress_;
  QTimer delay_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
