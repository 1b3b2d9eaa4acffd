// The folders and channels that an OPML list is imported as. Pure; any thread. Texts are in the
// module's code page.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/ImportValues.h"
#include "exchange/OpmlOutlines.h"
#include "exchange/Subscriptions.h"

namespace feedloom {

struct ImportPlan {
  SubscriptionList folders;
  int leftOut = 0;                       // feeds that are not imported, and entries without a feed
  std::vector<LeftOutEntry> named = {};  // the first kMostNamed of them
};

// Plans the import of an OPML list. Each top-level outline becomes a folder, and the outlines in it
// become its channels; when the top-level outline has a feed itself, that is the first channel.
// Top-level feeds without outlines in them go to one folder named `listName`, at the place of the
// first of them. The name is an outline's "text" or else its "title"; without both, a folder gets
// `listName` and a channel its feed's address. An outline of a deeper level that has outlines in it
// becomes a folder behind the one that it stands in, named "outer / inner"; an outer folder that
// holds nothing else is no folder itself. Left out are outlines without a feed, feeds at levels
// that were not read, and addresses that are not of the web. Returns none for a list with more than
// kMaxOutlines outlines.
std::optional<ImportPlan> PlanImport(const std::vector<OpmlOutline>& outlines,
                                     const std::string& listName);

// Returns the name for a list from its `place`, the path of a file or an address, in UTF-8: the
// last part of the path without its extension ("News" for "/home/me/News.opml"), or the host of an
// address without a path.
std::string ListName(const std::string& place);

}  // namespace feedloom
