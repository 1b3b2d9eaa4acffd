#include "refresh/RefreshQueue.h"

#include <utility>

#include "store/Rows.h"

namespace feedloom {
namespace {

std::string AddressIn(const RefreshEntry& entry) {
  return std::to_string(entry.folderId) + ' ' + entry.xmlLink;
}

}  // namespace

RefreshEntry EntryFor(const ChannelRow& channel) {
  RefreshEntry entry;
  entry.channelId = channel.id;
  entry.folderId = channel.folderId;
  entry.title = channel.title;
  entry.xmlLink = channel.xmlLink;
  entry.order = channel.order;
  return entry;
}

bool RefreshQueue::Append(RefreshEntry entry) {
  const bool isStored = entry.channelId >= 0;
  if (isStored ? Contains(entry.channelId) : addresses_.contains(AddressIn(entry))) return false;
  if (!isStored) entry.channelId = --lastUnstoredId_;
  const Place place = entries_.insert(entries_.end(), std::move(entry));
  if (!HasWaiting()) firstWaiting_ = place;
  Index(place);
  return true;
}

std::optional<RefreshEntry> RefreshQueue::Claim() {
  if (!HasWaiting()) return std::nullopt;
  return *firstWaiting_++;
}

void RefreshQueue::Renumber(int channelId, int newId) {
  if (newId == channelId) return;
  while (auto indexed = byId_.extract(channelId)) {
    indexed.mapped()->channelId = newId;
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
  byId_.emplace(place->channelId, place);
  addresses_.insert(AddressIn(*place));
}

// Removes an entry that is no longer in `byId_`.
void RefreshQueue::Erase(Place place) {
  addresses_.erase(addresses_.find(AddressIn(*place)));
  if (place == firstWaiting_) ++firstWaiting_;
  entries_.erase(place);
}

}  // namespace feedloom
