#pragma once

#include <functional>
#include <optional>
#include <string>

#include "check/FeedCheckAnswer.h"
#include "fetch/FetchServices.h"
#include "net/HostLogin.h"
#include "threads/BackgroundJobs.h"

namespace feedloom {

// Runs checks of feed addresses one at a time, on a thread below normal priority. Only the thread
// that constructed the object, its owner, may call it. No function waits for the network.
class FeedChecker {
 public:
  FeedChecker(SharedServices services, BackgroundJobs::Post toOwner)
      : services_(std::move(services)), jobs_(std::move(toOwner)) {}

  // Stops the current check and starts that of CheckFeed. `onAnswer` is
  // called once, on the owner's thread, after Start has returned; it may call Start and Stop, and
  // may destroy the checker. An address is no feed when the system refuses a thread to check it.
  void Start(const std::string& address, const std::optional<GivenLogin>& login,
             std::function<void(const FeedCheckAnswer&)> onAnswer);

  // Stops the current check. Its `onAnswer` is not called any more, even when the answer has been
  // posted to the owner already.
  void Stop() { jobs_.StopAll(); }

 private:
  const SharedServices services_;
  BackgroundJobs jobs_;
};

}  // namespace feedloom
