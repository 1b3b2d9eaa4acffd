// Whether a database can be in SQLite's write-ahead mode where it lies: that mode needs memory that
// programs share, which some file systems do not offer, and no two machines have. Any thread.
#pragma once

#include <chrono>
#include <string>

#include "profile/KeptDatabase.h"

namespace feedloom {

class Registry;

// A connection to the database at `path` that waits `patience` for other programs' locks; null when
// the file cannot be opened. Puts a profile's database into write-ahead mode before, or into the
// older one (a rollback journal) where it must be in that. What cannot be changed now, because the
// database is locked, read-only or damaged or the disk is full, stays as it is.
KeptDatabase OpenInBestMode(const std::string& path, std::chrono::milliseconds patience);

// Whether the database on which `database` is a connection is in the older mode because it must
// be. Null is in none.
bool MustUseOlderMode(sqlite3* database);

// Whether the user is to be told that MustUseOlderMode(database): once, until it is not so any
// more. Notes that in `registry`, the profile's.
bool IsOlderModeNews(sqlite3* database, const Registry& registry);

// Whether a file system with this number (statfs(2), f_type) is on another machine.
bool IsOnNetwork(unsigned long fileSystem);

}  // namespace feedloom
