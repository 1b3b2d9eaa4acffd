#pragma once

#include <string>

namespace feedloom {

// Lets the paths in the profile in `dir` follow it when it has been moved or copied since it was
// made or last opened: those registry values of the host that lead into the former place, and
// channels that are files there, as the sample is. What lies elsewhere stays. Where something
// cannot be written, the next call tries again.
//
// A profile that does not know its former place (an older program has made it) takes that of its
// work directory, when there is no directory any more or another profile.
void FollowMove(const std::string& dir);

}  // namespace feedloom
