#pragma once

#include <chrono>
#include <memory>
#include <string>

struct sqlite3;

namespace feedloom {

struct CloseDatabase {
  void operator()(sqlite3* database) const;
};

// A program's own idle connection to the profile's database, which closes it when it goes; null
// when the file cannot be opened. Kept as long as the program works, because
// - the connections that the store opens and closes for each operation then find the index of the
//   write-ahead file ready: without another connection each of them reads that whole file first;
// - as the last connection of all programs, it moves the write-ahead file's content into the
//   database's own file, so that this one is whole by itself after an orderly end. The emptied
//   write-ahead file and its index stay, without which a read-only directory could not be read.
// Goes after all other connections of its program. Belongs to the thread that made it.
using KeptDatabase = std::unique_ptr<sqlite3, CloseDatabase>;

// Opens the database at `path` with SQLITE_OPEN_ `flags`. Null when that fails.
KeptDatabase OpenDatabase(const std::string& path, int flags);

// Runs `sql`, one or more statements without a result. False at the first that fails.
bool Execute(sqlite3* database, const char* sql);

// Opens the database at `path`, and brings an older one up to date: into write-ahead mode, in which
// programs read while another one writes, if it can be where it lies (OpenInBestMode),
// and with the tables of gone_links.sql, undo.sql, post_details.sql, text_index.sql and filters.sql
// in `shareDir`. What cannot be changed, because it is read-only, locked for longer than `patience`
// or no profile's database, stays as it is without a word, and is tried again at the next call.
KeptDatabase KeepDatabase(const std::string& path, const std::string& shareDir,
                          std::chrono::milliseconds patience);

// What a program is about to do with a database.
enum class DatabaseUse { None, Read, Write };

// Waits, `patience` at most, until no other program's lock keeps `database` from being used so.
// False when one still does. Other obstacles are left to whoever uses it: null is not locked.
bool WaitForLocks(sqlite3* database, DatabaseUse use, std::chrono::milliseconds patience);

// The name by which SQLite can read the database at `path`: the path itself, unless it lies in a
// read-only directory without the files that write-ahead mode needs beside it. SQLite then reads
// it as a file that nobody changes.
std::string ReadableDatabase(const std::string& path);

}  // namespace feedloom
