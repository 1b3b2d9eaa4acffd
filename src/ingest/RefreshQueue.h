// The channels that wait for a refresh or are being refreshed.
#pragma once

#include <list>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>

namespace feedloom {

struct ChannelRow;

struct RefreshEntry {
  int channelId = -1;  // negative: not in the store yet
  int folderId = 0;
  std::string title;
  std::string xmlLink;   // the feed's address
  std::string htmlLink;  // the site's home page
  std::string type = "rss";
  int order = -1;
};

// The refresh of a channel that is in the store.
RefreshEntry EntryFor(const ChannelRow& channel);

// A plain container: whoever shares it between threads guards it. But for RemoveWaiting, what a
// function takes does not grow with the queue.
class RefreshQueue {
 public:
  RefreshQueue() = default;
  RefreshQueue(const RefreshQueue&) = delete;
  RefreshQueue& operator=(const RefreshQueue&) = delete;

  // False, and nothing is appended, when that channel is in the queue already. A channel that is
  // not in the store yet is known by its folder and address, and gets a negative id of its own: two
  // workers with the same one would both insert it.
  bool Append(RefreshEntry entry);

  // Takes the first entry that waits: it stays in the queue until Remove. None when none waits.
  std::optional<RefreshEntry> Claim();

  bool HasWaiting() const { return firstWaiting_ != entries_.end(); }
  bool IsEmpty() const { return entries_.empty(); }
  bool Contains(int channelId) const { return byId_.contains(channelId); }

  // A channel that was inserted into the store goes on under its new id.
  void Renumber(int channelId, int newId);
  void Remove(int channelId);
  void RemoveWaiting();

 private:
  using Entries = std::list<RefreshEntry>;
  using Place = Entries::iterator;

  void Index(Place place);
  void Erase(Place place);

  // In the order of Append, which is that of Claim: those that are taken stand before the others.
  Entries entries_;
  Place firstWaiting_ = entries_.end();
  // Several have one id when a channel turns out, on being inserted, to be in the store already.
  std::unordered_multimap<int, Place> byId_;
  std::unordered_multiset<std::string> addresses_;  // each with its folder
  int lastUnstoredId_ = 0;
};

}  // namespace feedloom
