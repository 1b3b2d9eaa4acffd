#pragma once

#include <string>

#include "ctl/Session.h"
#include "ingest/FeedFetch.h"

namespace feedloom {

// Fetches one feed into `parser`, in at most the time that a refresh gives a channel. Blocks. The
// outcome is a failed download, with its reason, also when there is no folder to work in.
FetchOutcome FetchOnce(Session& session, const std::string& address, FeedParser& parser);

}  // namespace feedloom
