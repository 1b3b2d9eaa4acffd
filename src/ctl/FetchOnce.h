#pragma once

#include <string>

#include "ctl/Session.h"
#include "fetch/FeedFetch.h"

namespace feedloom {

// Downloads the feed at `address` (ASCII) and parses it with `parser`, in at most
// RefreshLimits::timeLimit. Blocks the calling thread. Without a work folder the outcome is
// kDownloadFailed, with the reason in `error`.
FetchOutcome FetchOnce(Session& session, const std::string& address, FeedParser& parser);

}  // namespace feedloom
