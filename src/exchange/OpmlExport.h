#pragma once

#include <optional>
#include <string>

#include "exchange/Subscriptions.h"
#include "files/WholeFile.h"
#include "store/Store.h"

namespace feedloom {

// Returns the stored folders with their channels, in the order in which the tree shows them, or
// none after a failure, which the store reports. Any thread.
std::optional<SubscriptionList> StoredSubscriptions(Store& store);

// Writes the list as OPML with the present time to the file `path` (in the file system's encoding),
// completely or not at all, without a byte-order mark. When `path` is a symbolic link, its target
// is replaced. Returns the reason when the file cannot be written. Any thread.
[[nodiscard]] Failure WriteOpml(const Store& store, const std::string& path,
                                const SubscriptionList& list);

}  // namespace feedloom
