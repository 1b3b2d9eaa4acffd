#pragma once

#include <optional>
#include <string>

#include "exchange/OpmlCheck.h"
#include "exchange/Subscriptions.h"
#include "files/WholeFile.h"
#include "store/Store.h"

namespace feedloom {

// Returns the stored folders with their channels, in the order in which the tree shows them, or
// none after a failure, which the store reports. Any thread.
std::optional<SubscriptionList> StoredSubscriptions(Store& store);

struct OpmlExport {
  std::string opml;
  int folders = 0;
  int channels = 0;
  OpmlCheck check = {};
};

// Writes the list as OPML with the present time. By default all channels are written, and only "&"
// is escaped. With `isLenient` (HostConfig::ReadsLeniently) everything is escaped, and channels
// that are files of this machine, as the sample is, stay out. Any thread.
OpmlExport ExportSubscriptions(const Store& store, SubscriptionList list, bool isLenient);

}  // namespace feedloom
