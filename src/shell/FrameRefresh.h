#pragma once

#include <memory>
#include <optional>

#include "check/FeedChecker.h"
#include "refresh/RefreshEngine.h"
#include "ui/InterfaceThread.h"
#include "ui/Refreshing.h"

namespace feedloom {

// The refresh engine and the feed check, with their messages and answers handed over to the
// interface thread. Interface thread only.
class FrameRefresh : public Refreshing {
 public:
  // `toFrame` and `toHost` are called with the engine's messages on the interface thread until
  // `thread` is closed. `thread` must be closed before Stop.
  FrameRefresh(const std::shared_ptr<InterfaceThread>& thread, SharedServices services,
               InterfaceTarget::Handler toFrame, InterfaceTarget::Handler toHost);

  // Ends the refresh and the feed check for good: nothing is queued, refreshed or checked any more.
  void Stop();

  // As RefreshEngine::StopRun and RefreshEngine::Sums.
  void StopRun();
  RefreshSums Sums() const;

  bool IsAnyChannelQueued(std::span<const int> channelIds) const override;
  void QueueRefresh(std::vector<Channel> entries) override;
  void StartRefresh() override;
  FeedVisit LastVisit(const Channel& channel) const override;
  OwnPeriods Periods() const override { return LoadOwnPeriods(registry_); }
  bool SetPeriod(const std::string& address, std::chrono::minutes period) override {
    return StoreOwnPeriod(registry_, address, period);
  }
  void CheckFeed(const std::string& address, const std::optional<GivenLogin>& login,
                 std::function<void(const FeedCheckAnswer&)> onAnswer) override;
  void StopFeedCheck() override;

 private:
  const Registry registry_;
  InterfaceTarget frame_;
  InterfaceTarget host_;
  std::optional<FeedChecker> checker_;  // none after Stop, as the engine
  std::optional<RefreshEngine> engine_;
};

}  // namespace feedloom
