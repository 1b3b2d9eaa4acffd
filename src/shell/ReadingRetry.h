#pragma once

#include <QTimer>
#include <functional>
#include <memory>

#include "shell/FirstReading.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

// Reads the start's content every half second on a background thread, until it can be read.
// Interface thread only.
class ReadingRetry {
 public:
  using OnRead = std::function<void(FirstContent content)>;

  // Begins half a second later. `toOwner` queues work for the interface thread. `onRead` is called
  // once, with a tree, and may destroy the object. `store` reports each failure.
  ReadingRetry(std::shared_ptr<Store> store, const Settings& settings, BackgroundJobs::Post toOwner,
               OnRead onRead);

  // Reads at once. What is being read is dropped: it may lack a row that has been stored since.
  void ReadNow();

 private:
  void Take(FirstContent content);

  const std::shared_ptr<Store> store_;
  const Settings settings_;
  const OnRead onRead_;
  QTimer timer_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
