// The queue of channels that wait for a refresh or are being refreshed.
#pragma once

#include <list>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "store/Rows.h"

namespace feedloom {

// The queue. It has no lock of its own: callers on several threads need one. Every function except
// RemoveWaiting takes constant time.
class RefreshQueue {
 public:
  RefreshQueue() = default;
  RefreshQueue(const RefreshQueue&) = delete;
  RefreshQueue& operator=(const RefreshQueue&) = delete;

  // Appends `entry`, or returns false when its channel is in the queue already. A channel that is
  // not in the store (a negative id) counts as queued when its folder and address are: two workers
  // would both insert it. It gets a negative id of its own.
  bool Append(Channel entry);

  // Returns the first entry that waits, or nothing. The entry stays in the queue until Remove.
  std::optional<Channel> Claim();

  // Lets the entry that Claim has returned last, and that is still in the queue, wait again.
  void Unclaim() { --firstWaiting_; }

  bool HasWaiting() const { return firstWaiting_ != entries_.end(); }
  // The number of entries, waiting or not.
  int Size() const { return static_cast<int>(entries_.size()); }
  bool Contains(int channelId) const { return byId_.contains(channelId); }

  // Gives the entries of `channelId` the id `newId`, after the channel was inserted into the store.
  void Renumber(int channelId, int newId);
  // Removes all entries of `channelId`; all entries that wait.
  void Remove(int channelId);
  void RemoveWaiting();

 private:
  using Entries = std::list<Channel>;
  using Place = Entries::iterator;

  void Index(Place place);
  void Erase(Place place);

  // Entries in the order of Append. Those that Claim has returned stand before `firstWaiting_`.
  Entries entries_;
  Place firstWaiting_ = entries_.end();
  // Two entries have one id when a channel that was to be inserted is found in the store.
  std::unordered_multimap<int, Place> byId_;
  std::unordered_multiset<std::string> addresses_;  // of all entries, each with its folder
  int lastUnstoredId_ = 0;
};

}  // namespace feedloom
