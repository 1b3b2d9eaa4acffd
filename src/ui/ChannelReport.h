// What the user is told of a channel's last refresh. Pure but for the host's texts; texts are in
// the module's code page. Interface thread.
#pragma once

#include <chrono>
#include <string>

#include "fetch/FeedMemory.h"
#include "store/Rows.h"

namespace feedloom {

class Skin;

// Returns why the last refresh failed; empty when it did not. `state` is the channel's, which is
// known also where the visit is not.
std::string FailureText(const Skin& skin, int state, const FeedVisit& visit);

// Returns FailureText, since when the channel fails, and whether it is dead, a line each.
std::string StateText(const Skin& skin, int state, const FeedVisit& visit,
                      std::chrono::system_clock::time_point now);

// Returns StateText, and where the feed has gone for good, a line each: what a row's tip says.
std::string ChannelReport(const Skin& skin, const ChannelRow& channel, const FeedVisit& visit,
                          std::chrono::system_clock::time_point now);

// Returns `time` in the machine's time zone as a date and a time; without a time, a text that says
// so.
std::string VisitTime(const Skin& skin, std::chrono::sys_seconds time);

// Returns the ASCII address of the web where the channel's server says that the feed has gone for
// good; empty when nowhere, or when the channel has it already.
std::string NewAddressOf(const Channel& channel, const FeedVisit& visit);

}  // namespace feedloom
