// What can be done for a profile whose database is damaged or missing. Failures are messages for
// the user (UTF-8). The caller of what writes holds the profile's lock.
#pragma once

#include <string>

#include "profile/Profile.h"

namespace feedloom {

// Whether the profile's database is missing, no database, or one without the store's tables, as a
// look at its beginning tells. One that another program locks is none of these.
bool NeedsRepair(const ProfilePaths& paths);

// The path of the newest automatic copy without damage; empty when there is none. Reads all of it.
std::string GoodCopy(const ProfilePaths& paths);

// Put a good copy, or a new database as that of a new profile, in the place of the damaged one,
// which PutAside keeps.
[[nodiscard]] Failure RestoreCopy(const ProfilePaths& paths, const std::string& copy);
[[nodiscard]] Failure StartEmpty(const ProfilePaths& paths, const std::string& shareDir);

// Forgets what servers have said of versions whose posts another database may lack.
void ForgetServers(const ProfilePaths& paths);

// Renames the database, with what was written to it last, to "rssdb.damaged-" and the time. No
// failure when there is none.
[[nodiscard]] Failure PutAside(const ProfilePaths& paths);

}  // namespace feedloom
