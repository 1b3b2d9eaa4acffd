// Backups of a profile: one file, an SQLite database like that of the profile, with the profile's
// other files in a table of its own, FEEDLOOM_BACKUP. Failures are messages for the user (UTF-8).
// Paths are the file system's bytes. The functions that use the profile's database wait 5 s for
// locks of other programs, and then fail.
#pragma once

#include <functional>
#include <string>

#include "files/RegistryFile.h"
#include "profile/Profile.h"

struct sqlite3;

namespace feedloom {

// Whether the names and passwords for servers (logins.reg) come into a backup.
enum class BackedUpLogins { LeftOut, Included };

// Whether the profile keeps any.
bool HasLogins(const ProfilePaths& paths);

// Writes a backup to `file`, which is replaced when the new one is whole and on the disk, and which
// only its user may read. Programs may use the profile meanwhile.
[[nodiscard]] Failure BackUpProfile(const ProfilePaths& paths, const std::string& file,
                                    BackedUpLogins logins);

// Checks the backup in `file` and takes it into the profile, for CompleteRestore. Before that the
// profile itself, unless its database is damaged, is backed up to FormerProfile(). Nothing changes
// when `file` is no whole backup.
[[nodiscard]] Failure TakeBackup(const ProfilePaths& paths, const std::string& file);

// Gives the profile what the backup holds that was taken into it: database, registry, own texts,
// and logins if it has any. A damaged database is kept beside the new one, under its name with
// ".damaged". Does nothing without such a backup; after an interruption the next call begins again.
// The caller holds the profile's lock, but other programs may use the database meanwhile.
[[nodiscard]] Failure CompleteRestore(const ProfilePaths& paths);

// Whether a backup was taken and CompleteRestore has still something to do.
bool IsRestorePending(const ProfilePaths& paths);

// Changes the backup in `file`: gives its registry the value `entry`, and calls `change` with its
// database. Returns false, and leaves the file of no use, when `change` does or after a failure.
[[nodiscard]] bool ChangeBackup(const std::string& file, const RegistryEntry& entry,
                                const std::function<bool(sqlite3*)>& change);

// The file in which TakeBackup keeps what the profile was.
std::string FormerProfile(const ProfilePaths& paths);

}  // namespace feedloom
