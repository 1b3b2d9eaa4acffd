#pragma once

#include <functional>
#include <string>
#include <thread>

#include "ingest/FeedCheckAnswer.h"
#include "ingest/IngestServices.h"

namespace feedloom {

// Runs checks of feed addresses on a thread below normal priority, one at a time. Belongs to the
// thread that made it, its owner; no function waits for the network.
class FeedChecker {
 public:
  // Hands a piece of work to the owner's thread, or drops it, and comes back without waiting for
  // it. It is called on the check's thread, and not any more when the checker has ended.
  using Post = std::function<void(std::function<void()>)>;

  FeedChecker(SharedServices services, Post toOwner);
  // Stops, and waits until the check's thread is gone: within 100 ms, and its file with it.
  ~FeedChecker();
  FeedChecker(const FeedChecker&) = delete;
  FeedChecker& operator=(const FeedChecker&) = delete;

  // Begins to check `address`, a text in the module's code page. `onAnswer` is called once, on the
  // owner's thread; it may call Start and Stop, and may end the checker. The check before is
  // stopped.
  void Start(const std::string& address, std::function<void(const FeedCheckAnswer&)> onAnswer);

  // The check's answer is dropped, even when it is on its way already; its file is removed soon.
  void Stop();

 private:
  void RunCheck(const std::string& address, std::stop_token stop);
  void Deliver(const FeedCheckAnswer& answer);

  const SharedServices services_;
  const Post toOwner_;
  std::function<void(const FeedCheckAnswer&)> onAnswer_;
  std::jthread thread_;  // of the latest check; joins the one before
};

}  // namespace feedloom
