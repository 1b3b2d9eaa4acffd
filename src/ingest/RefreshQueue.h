// The channels that wait for a refresh or are being refreshed.
#pragma once

#include <list>
#include <optional>
#include <string>

namespace feedloom {

struct RefreshEntry {
  int channelId = -1;  // negative: not in the store yet
  int folderId = 0;
  std::string title;
  std::string xmlLink;   // the feed's address
  std::string htmlLink;  // the site's home page
  std::string type = "rss";
  int order = -1;
};

// A plain container: whoever shares it between threads guards it.
class RefreshQueue {
 public:
  // False, and nothing is appended, when that channel is in the queue already. A channel that is
  // not in the store yet is known by its folder and address, and gets a negative id of its own: two
  // workers with the same one would both insert it.
  bool Append(RefreshEntry entry);

  // Takes the first entry that waits: it stays in the queue until Remove. None when none waits.
  std::optional<RefreshEntry> Claim();

  bool HasWaiting() const;
  bool IsEmpty() const { return slots_.empty(); }
  bool Contains(int channelId) const;

  // A channel that was inserted into the store goes on under its new id.
  void Renumber(int channelId, int newId);
  void Remove(int channelId);
  void RemoveWaiting();

 private:
  struct Slot {
    RefreshEntry entry;
    bool taken = false;
  };

  bool ContainsAddress(const RefreshEntry& entry) const;

  std::list<Slot> slots_;
  int lastUnstoredId_ = 0;
};

}  // namespace feedloom
