#pragma once

#include <string>

#include "store/Store.h"

namespace feedloom {

// Copies the database to the path of its file with ".bak" at the end, in place of an older copy.
// Holds the store's lock, so that no statement of this process runs meanwhile, and waits a moment
// for locks of other programs. The copy is written to a temporary file and renamed once it has
// reached the disk, so it is never half written. It is one file, also when the database is in
// write-ahead mode. Returns false when the copy cannot be made or the database is damaged: the
// older copy stays then, and nothing is reported. Takes about 4 ms a megabyte. Any thread.
bool BackupDatabase(Store& store);

// Whether the file at `path` is no database, or one without the store's tables, as its first pages
// tell. False also when it cannot be opened, or another program locks it.
bool LooksDamaged(const std::string& path);

// Whether the file at `path` is a database with the store's tables and without damage. Reads all of
// it.
bool IsWholeDatabase(const std::string& path);

// Copies the database at `from` to the file at `to`, which is new or empty, while other programs
// may use it. The copy is one file, and on the disk. Returns false when there is damage or no such
// database; `to` then is of no use.
bool CopyDatabase(const std::string& from, const std::string& to);

// Makes the database at `to` one with the content of the one at `from`, in one transaction. Other
// programs may use it meanwhile. Returns false, and changes nothing, after a failure.
bool ReplaceContent(const std::string& to, const std::string& from);

}  // namespace feedloom
