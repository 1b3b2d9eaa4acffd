#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ctl/Session.h"
#include "fetch/FeedFetch.h"

namespace feedloom {

struct FetchedOnce {
  FetchOutcome outcome;
  std::vector<std::string> announced = {};  // AnnouncedFeeds of a page that is no feed
};

// Downloads the feed at `address` (ASCII) and parses it with `parser`, in at most
// RefreshLimits::timeLimit. Blocks the calling thread. Without a work folder the outcome is
// kDownloadFailed, with the reason in `error`. `login`, which the user has just given, is kept when
// a document comes.
FetchedOnce FetchOnce(Session& session, const std::string& address, FeedParser& parser,
                      const std::optional<GivenLogin>& login = {});

}  // namespace feedloom
