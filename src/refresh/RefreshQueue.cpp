#include "refresh/RefreshQueue.h"

#include <utility>

namespace feedloom {
namespace {

std::string AddressIn(const Channel& entry) {
  return std::to_string(entry.folderId) + ' ' + entry.xmlLink;
}

}  // namespace

bool RefreshQueue::Append(Channel entry) {
  const bool isStored = entry.id >= 0;
  if (isStored ? Contains(entry.id) : addresses_.contains(AddressIn(entry))) return false;
  if (!isStored) entry.id = --lastUnstoredId_;
  const Place place = entries_.insert(entries_.end(), std::move(entry));
  if (!HasWaiting()) firstWaiting_ = place;
  Index(place);
  return true;
}

std::optional<Channel> RefreshQueue::Claim() {
  if (!HasWaiting()) return std::nullopt;
  return *firstWaiting_++;
}

void RefreshQueue::Renumber(int channelId, int newId) {
  if (newId == channelId) return;
  while (auto indexed = byId_.extract(channelId)) {
    indexed.mapped()->id = newId;
    indexed.key() = newId;
    byId_.insert(std::move(indexed));
  }
}

void RefreshQueue::Remove(int channelId) {
  while (const auto indexed = byId_.extract(channelId)) Erase(indexed.mapped());
}

void RefreshQueue::RemoveWaiting() {
  entries_.erase(firstWaiting_, entries_.end());
  firstWaiting_ = entries_.end();
  byId_.clear();
  addresses_.clear();
  for (Place place = entries_.begin(); place != entries_.end(); ++place) Index(place);
}

void RefreshQueue::Index(Place place) {
  byId_.emplace(place->id, place);
  addresses_.insert(AddressIn(*place));
}

// Removes an entry that is no longer in `byId_`.
void RefreshQueue::Erase(Place place) {
  addresses_.erase(addresses_.find(AddressIn(*place)));
  if (place == firstWaiting_) ++firstWaiting_;
  entries_.erase(place);
}

}  // namespace feedloom
