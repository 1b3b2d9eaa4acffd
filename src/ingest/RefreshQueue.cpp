#include "ingest/RefreshQueue.h"

#include <algorithm>

namespace feedloom {

bool RefreshQueue::Append(RefreshEntry entry) {
  const bool isStored = entry.channelId >= 0;
  if (isStored ? Contains(entry.channelId) : ContainsAddress(entry)) return false;
  if (!isStored) entry.channelId = --lastUnstoredId_;
  slots_.push_back({std::move(entry)});
  return true;
}

std::optional<RefreshEntry> RefreshQueue::Claim() {
  const auto waiting = std::ranges::find(slots_, false, &Slot::taken);
  if (waiting == slots_.end()) return std::nullopt;
  waiting->taken = true;
  return waiting->entry;
}

bool RefreshQueue::HasWaiting() const {
  return std::ranges::find(slots_, false, &Slot::taken) != slots_.end();
}

bool RefreshQueue::Contains(int channelId) const {
  return std::ranges::any_of(slots_,
                             [&](const Slot& slot) { return slot.entry.channelId == channelId; });
}

bool RefreshQueue::ContainsAddress(const RefreshEntry& entry) const {
  return std::ranges::any_of(slots_, [&](const Slot& slot) {
    return slot.entry.folderId == entry.folderId && slot.entry.xmlLink == entry.xmlLink;
  });
}

void RefreshQueue::Renumber(int channelId, int newId) {
  for (Slot& slot : slots_) {
    if (slot.entry.channelId == channelId) slot.entry.channelId = newId;
  }
}

void RefreshQueue::Remove(int channelId) {
  slots_.remove_if([&](const Slot& slot) { return slot.entry.channelId == channelId; });
}

void RefreshQueue::RemoveWaiting() {
  slots_.remove_if([](const Slot& slot) { return !slot.taken; });
}

}  // namespace feedloom
