#pragma once

#include <optional>
#include <string>

#include "exchange/Subscriptions.h"
#include "platform/WholeFile.h"
#include "store/Store.h"

namespace feedloom {

// The stored folders with their channels, in the order in which the tree shows them; none after a
// failure, which the store has reported. Any thread.
std::optional<SubscriptionList> StoredSubscriptions(Store& store);

// Puts the list at `path` (the file system's own bytes) as OPML with the present time, whole or not
// at all, without a byte-order mark. A link at `path` stays, and what it leads to is replaced. Any
// thread.
[[nodiscard]] Failure WriteOpml(const Store& store, const std::string& path,
                                const SubscriptionList& list);

}  // namespace feedloom
