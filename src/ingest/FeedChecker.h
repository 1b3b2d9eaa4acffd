#pragma once

#include <functional>
#include <string>

#include "ingest/FeedCheckAnswer.h"
#include "ingest/IngestServices.h"
#include "platform/BackgroundJobs.h"

namespace feedloom {

// Runs checks of feed addresses on a thread below normal priority, one at a time. Belongs to the
// thread that made it, its owner; no function waits for the network.
class FeedChecker {
 public:
  FeedChecker(SharedServices services, BackgroundJobs::Post toOwner)
      : services_(std::move(services)), jobs_(std::move(toOwner)) {}

  // Begins to check `address`, a text in the module's code page. `onAnswer` is called once, on the
  // owner's thread; it may call Start and Stop, and may end the checker. The check before is
  // stopped.
  void Start(const std::string& address, std::function<void(const FeedCheckAnswer&)> onAnswer);

  // The check's answer is dropped, even when it is on its way already; its file is removed soon.
  void Stop() { jobs_.StopAll(); }

 private:
  const SharedServices services_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
