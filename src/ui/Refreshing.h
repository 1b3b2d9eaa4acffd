// The refresh of channels, and the check of an address that may become one.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fetch/FeedMemory.h"
#include "fetch/OwnPeriods.h"
#include "net/HostLogin.h"
#include "refresh/RefreshQueue.h"

namespace feedloom {

struct FeedCheckAnswer;

// Interface thread only.
class Refreshing {
 public:
  virtual ~Refreshing() = default;

  // True when at least one of the channels waits for a refresh or is being refreshed.
  virtual bool IsAnyChannelQueued(std::span<const int> channelIds) const = 0;
  // Appends the channels to the refresh queue. Channels that are already in it are skipped.
  virtual void QueueRefresh(std::vector<Channel> entries) = 0;
  // Starts refreshing the queued channels; does nothing when the queue is empty.
  virtual void StartRefresh() = 0;

  // What the channel's server said at the last refresh, or why it could not be asked; one without
  // times when that is not known. Cheap: may be asked for each row that is painted.
  virtual FeedVisit LastVisit(const Channel& channel) const = 0;

  // The periods that the user has chosen for channels.
  virtual OwnPeriods Periods() const = 0;
  // Stores the period of the feed at `address`, 0 for the one that it wishes. False when it cannot.
  [[nodiscard]] virtual bool SetPeriod(const std::string& address, std::chrono::minutes period) = 0;

  // Checks on another thread whether `address` leads to a feed, and calls `onAnswer` with the
  // result on the interface thread. At most one check runs: `onAnswer` is not called after the
  // next CheckFeed, after StopFeedCheck, or once the frame is closing. `login`, which the user has
  // just given for a server, is kept when a document comes.
  virtual void CheckFeed(const std::string& address, const std::optional<GivenLogin>& login,
                         std::function<void(const FeedCheckAnswer&)> onAnswer) = 0;
  virtual void StopFeedCheck() = 0;
};

}  // namespace feedloom
