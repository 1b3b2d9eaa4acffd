#pragma once

#include <stop_token>
#include <string>

#include "ingest/IngestServices.h"
#include "platform/MessageTarget.h"

namespace feedloom {

// Finds out whether `address` (in the module's code page) yields an RSS or Atom document, and sends
// `dialog` two messages: kMessageFeedDetails with a pointer to the FeedCheckAnswer, then
// kMessageFeedChecked with 1 and a pointer to the channel's title (a std::string in the module's
// code page), or with 0 and 0. Both pointers are valid during the send. Returns 1 for a feed, else
// 0. A feed that a web page announces is not fetched.
//
// Waits one second first, so that a user who goes on typing can stop the check before a request is
// sent. Takes at most RefreshLimits::timeLimit after that. Ends within 100 ms of `stop`, without
// sending a message. Blocks the calling thread, which may be any. At most one check may run in one
// work folder. The temporary file is removed before the messages are sent.
int CheckFeed(const IngestServices& services, MessageTarget& dialog, const std::string& address,
              std::stop_token stop);

}  // namespace feedloom
