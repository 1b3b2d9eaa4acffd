// The two halves of an import: a list is read, and what it asks for is put into the store.
#pragma once

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

#include "exchange/ImportPlan.h"
#include "exchange/ImportValues.h"
#include "ingest/IngestServices.h"
#include "store/Rows.h"

namespace feedloom {

struct ReadList {
  std::optional<ImportPlan> plan;
  std::string error;  // English, for diagnosis; empty with a plan
};

// Reads a list; an address is downloaded first, as a feed is, and the file is gone when it comes
// back. No plan when that fails, takes longer than a feed may, or what came is not OPML. Changes
// nothing. Blocks the calling thread, of which one at a time may read an address; ends soon after
// `stop`, without a plan.
ReadList ReadSubscriptions(const IngestServices& services, const ListSource& source,
                           std::stop_token stop);

// What becomes of a folder whose name is taken: another name ("News-1"), or its channels join those
// of the folder that is there.
enum class NameClash { Rename, Merge };

// What is heard of the rows that are new in the store, on the calling thread.
struct ImportNews {
  std::function<void(const FolderRow&)> onFolder;
  std::function<void(const ChannelRow&)> onChannel;
};

// Adds what is not there yet, folder by folder, up to a hundred channels at once, each with the
// order that its folder's last one has. The first failure of the store, which it reports, ends it,
// and so does `stop`: the sums are not complete then, and what was not added counts as left out.
// Any thread.
ImportSums AddSubscriptions(Store& store, const ImportPlan& plan, NameClash clash,
                            const ImportNews& news, std::stop_token stop);

}  // namespace feedloom
