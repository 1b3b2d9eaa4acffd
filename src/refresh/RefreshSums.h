#pragma once

#include <vector>

namespace feedloom {

// What a run has done so far.
struct RefreshSums {
  int done = 0;              // channels that have ended
  int total = 0;             // channels; rises when some are queued during the run
  int failed = 0;            // channels, of those that have ended
  int missing = 0;           // posts that could not be stored
  bool wasStopped = false;   // by RefreshEngine::StopRun
  std::vector<int> posts{};  // the ids of the posts that were stored
};

}  // namespace feedloom
