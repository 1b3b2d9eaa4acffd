// Why feeds fail, as the commands say it. All texts are UTF-8.
#pragma once

#include <chrono>

#include "ctl/Output.h"
#include "fetch/FeedMemory.h"

namespace feedloom {

// Returns {"kind": FaultKindName, "text": FaultWords} with what else the fault holds: "status",
// "missing" (posts), "line" and "column", "detail". Null for None.
Json FaultJson(const FeedFault& fault);

// Adds to `channel` what is known of its last visits: "fault", "lastTry", "lastSuccess" (UTC, as
// RFC 3339 writes it), "dead", "movedTo". What is not known is null.
void AddVisit(Json& channel, const FeedVisit& visit, std::chrono::sys_seconds now);

// Returns words for a channel of this state, a ChannelResult: the fault's when the last try has had
// one, and "dead" before them for a dead feed; else ResultWords.
std::string VisitWords(int state, const FeedVisit& visit, std::chrono::sys_seconds now);

}  // namespace feedloom
