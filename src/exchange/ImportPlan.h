// What an OPML list asks to be subscribed to. Pure; any thread.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exchange/Subscriptions.h"
#include "ingest/OpmlOutlines.h"

namespace feedloom {

struct ImportPlan {
  SubscriptionList folders;
  int leftOut = 0;  // feeds that are not taken, and entries that are none
};

// Each top-level outline becomes a folder, with the outlines in it as its channels, and with a feed
// of its own as the first of them; those that are nothing but a feed come together in one folder
// that bears `listName`, where the first of them stood. An outline is called by its "text", or else
// its "title"; a folder without either by `listName`, a channel by its feed's address. Left out is
// what has no feed, what lies deeper, and each address that is not of the web. None for a list that
// is too long to be anybody's. Texts are in the module's code page.
std::optional<ImportPlan> PlanImport(const std::vector<OpmlOutline>& outlines,
                                     const std::string& listName);

// The name of a list by the place that it came from, the path of a file or a web address, both
// UTF-8: the last part without its ending ("/home/me/News.opml" is "News"), of an address without
// one its host.
std::string ListName(const std::string& place);

}  // namespace feedloom
