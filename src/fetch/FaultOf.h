// What a transfer or a document tells, as a FeedFault. Pure; any thread.
#pragma once

#include "feed/DocumentFault.h"
#include "fetch/FeedFault.h"
#include "net/UrlTransfer.h"

namespace feedloom {

// Of a transfer that has failed. One that was stopped has TimedOut: whoever stops it for another
// reason does not ask.
FeedFault FaultOf(const TransferResult& failed);

// Of a document that was refused. None means that its parse was stopped, and becomes TimedOut.
FeedFault FaultOf(const DocumentFault& refused);

}  // namespace feedloom
