// The two steps of an import: reading a list, and adding its folders and channels to the store.
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

#include "exchange/ImportPlan.h"
#include "exchange/ImportValues.h"
#include "fetch/FetchServices.h"
#include "store/Rows.h"

namespace feedloom {

struct ReadList {
  std::optional<ImportPlan> plan;
  std::string error;  // English; empty when there is a plan
  // Where the document, which is a feed in place of a list, is to be had (OwnAddress).
  std::string feed = {};
};

// Reads the list at `source`. An address is downloaded to a temporary file first, with the limits
// of a feed's download. Returns no plan, but an error, when the list cannot be read, the download
// takes too long, the document is not OPML, or `stop` is requested. Does not change the store.
// Blocks the calling thread; only one thread at a time may read an address.
[[nodiscard]] ReadList ReadSubscriptions(const FetchServices& services, const ListSource& source,
                                         std::stop_token stop);

// Called for each row that was added to the store, on the thread that imports.
struct ImportListener {
  std::function<void(const FolderRow&)> onFolder;
  std::function<void(const ChannelRow&)> onChannel;
};

// Adds the folders and channels of `plan`, as `clash` says, folder by folder, at
// most a hundred channels with one statement. A new channel gets the highest order of its folder.
// Ends early when `stop` is requested, or at the first failure of the store, which reports it;
// isComplete is false then, and the channels that were not added count as left out. Any thread.
ImportSums AddSubscriptions(Store& store, const ImportPlan& plan, NameClash clash,
                            const ImportListener& news, std::stop_token stop);

}  // namespace feedloom
