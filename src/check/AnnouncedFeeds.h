#pragma once

#include <string>
#include <vector>

#include "fetch/FeedFetch.h"

namespace feedloom {

// The http and https addresses (ASCII, escaped) of the feeds that a web page announces, in its
// order, when `parser` has refused the document in the file `path`, which came with `outcome`, as
// none that it knows. JSON Feeds count when `isLenient`, as only a lenient parser reads them. The
// page's own address does not count.
std::vector<std::string> AnnouncedFeeds(const std::string& path, const FetchOutcome& outcome,
                                        const FeedParser& parser, bool isLenient);

}  // namespace feedloom
