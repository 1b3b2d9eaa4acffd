// What is remembered of a channel's server after a try. Pure; any thread.
#pragma once

#include <chrono>

#include "fetch/FeedFetch.h"
#include "fetch/FeedMemory.h"

namespace feedloom {

// Returns the visit after `last` when a try has ended at `now` with `outcome`, of whose posts
// `missing` could not be stored: these are fetched again with the next document.
FeedVisit VisitAfter(FeedVisit last, const FetchOutcome& outcome, int missing,
                     std::chrono::system_clock::time_point now);

// Returns the visit after `last` when a try has ended at `now` with `fault`.
FeedVisit VisitAfterFault(FeedVisit last, FeedFault fault,
                          std::chrono::system_clock::time_point now);

// Returns whether the server has asked for a longer wait than until `now` ("Retry-After").
bool MustWait(const FeedVisit& last, std::chrono::system_clock::time_point now);

}  // namespace feedloom
