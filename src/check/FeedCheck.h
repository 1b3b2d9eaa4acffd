#pragma once

#include <optional>
#include <stop_token>
#include <string>

#include "check/FeedCheckAnswer.h"
#include "fetch/FetchServices.h"
#include "net/HostLogin.h"

namespace feedloom {

// Finds out whether `address` (in the module's code page) yields an RSS or Atom document. A feed
// that a web page announces is not fetched. `login`, which the user has just given, is kept when a
// document comes.
//
// Waits one second first, so that a user who goes on typing can stop the check before a request is
// sent. Takes at most RefreshLimits::timeLimit after that. Ends within 100 ms of `stop`; the answer
// means nothing then. Blocks the calling thread, which may be any. At most one check may run in one
// work folder. The temporary file is removed.
FeedCheckAnswer CheckFeed(const FetchServices& services, const std::string& address,
                          const std::optional<GivenLogin>& login, std::stop_token stop);

}  // namespace feedloom
