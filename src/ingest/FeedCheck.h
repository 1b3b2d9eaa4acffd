#pragma once

#include <stop_token>
#include <string>

#include "ingest/IngestServices.h"
#include "platform/MessageTarget.h"

namespace feedloom {

// Finds out whether `address` yields an RSS or Atom document and tells `dialog` in two messages:
// kMessageFeedDetails with all that the check found out, then kMessageFeedChecked with 1 and a
// pointer to the channel's title (a std::string in the module's code page, valid during the send),
// or 0 and 0. Returns 1 or 0 likewise. A feed that a web page announces is not fetched.
//
// Begins after a second's wait, in which a user who types on can still stop it, and then takes at
// most the time that a refresh gives a channel. Ends within 100 ms of `stop`, and then answers
// nothing. Leaves no file. Blocks: give it a thread of its own. One check at a time in one work
// folder.
int CheckFeed(const IngestServices& services, MessageTarget& dialog, const std::string& address,
              std::stop_token stop);

}  // namespace feedloom
