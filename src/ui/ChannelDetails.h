#pragma once

#include <chrono>
#include <string>

#include "fetch/FeedMemory.h"
#include "store/Rows.h"

namespace feedloom {

// The channel that a dialog is about. Texts are in the module's code page; names do not include
// unread counts.
struct ChannelDetails : Channel {
  std::string folderName;
  int state = 0;                      // as of ChannelRow
  FeedVisit visit = {};               // as of Refreshing::LastVisit
  std::chrono::minutes ownPeriod{0};  // as of Refreshing::Periods
};

}  // namespace feedloom
