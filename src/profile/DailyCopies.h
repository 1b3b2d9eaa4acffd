#pragma once

#include <string>
#include <vector>

#include "profile/Profile.h"

namespace feedloom {

// Keeps the copy of the database that the module has made at its last end, `rssdb.bak`, under the
// name of its day in the profile's directory `backups`, and removes all but the five newest of
// these. A later copy of the same day takes the place of an earlier one. Takes no room until
// `rssdb.bak` is replaced, where the file system has links. Failures are ignored: the next call
// tries again. The caller holds the profile's lock.
void KeepDailyCopy(const ProfilePaths& paths);

// The paths of the automatic copies, newest first: `rssdb.bak` and those of days.
std::vector<std::string> AutomaticCopies(const ProfilePaths& paths);

}  // namespace feedloom
