#include "profile/KeptDatabase.h"

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>

#include "files/Path.h"
#include "profile/Files.h"
#include "profile/WriteAhead.h"

namespace feedloom {
namespace {

// Stored in the file, for all connections: 16 MB at most, as far as a statement needs them. With
// the 2 MB that are usual, a clean-up of many posts, whose links go into the tables that are added
// here, writes the same pages to the disk again and again.
constexpr char kCacheSize[] = "PRAGMA default_cache_size = 4000";

void BringUpToDate(sqlite3* database, const std::string& additions) {
  if (!Execute(database, "SELECT 1 FROM TB_CHANNEL, TB_POST LIMIT 0")) return;
  const bool isNew = !Execute(database, "SELECT 1 FROM TB_GONE_LINK LIMIT 0");
  const bool done = Execute(database, "BEGIN") && (!isNew || Execute(database, kCacheSize)) &&
                    Execute(database, additions.c_str()) && Execute(database, "COMMIT");
  if (!done) Execute(database, "ROLLBACK");
}

// When the connection is the last one to close, SQLite empties the write-ahead file and keeps it.
void KeepEmptiedFiles(sqlite3* database) {
  int on = 1;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_PERSIST_WAL, &on);
  Execute(database, "PRAGMA journal_size_limit = 0");
}

bool HasFileBeside(const std::string& path) {
  std::error_code ignored;
  for (const char* suffix : {"-wal", "-shm", "-journal"}) {
    if (std::filesystem::exists(path + suffix, ignored)) return true;
  }
  return false;
}

}  // namespace

KeptDatabase OpenDatabase(const std::string& path, int flags) {
  sqlite3* opened = nullptr;
  const bool isOpen = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr) == SQLITE_OK;
  KeptDatabase database(opened);
  return isOpen ? std::move(database) : nullptr;
}

bool Execute(sqlite3* database, const char* sql) {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

void CloseDatabase::operator()(sqlite3* database) const { sqlite3_close(database); }

KeptDatabase KeepDatabase(const std::string& path, const std::string& shareDir,
                          std::chrono::milliseconds patience) {
  KeptDatabase database = OpenInBestMode(path, patience);
  if (!database) return nullptr;
  std::string additions;
  for (const char* const name :
       {"gone_links.sql", "undo.sql", "post_details.sql", "text_index.sql", "filters.sql"}) {
    additions += ReadFile(JoinPath(shareDir, name)).value_or("");
  }
  BringUpToDate(database.get(), additions);
  KeepEmptiedFiles(database.get());
  return database;
}

bool WaitForLocks(sqlite3* database, DatabaseUse use, std::chrono::milliseconds patience) {
  if (database == nullptr || use == DatabaseUse::None) return true;
  sqlite3_busy_timeout(database, static_cast<int>(patience.count()));
  const bool writes = use == DatabaseUse::Write;
  const bool isFree = Execute(
      database, writes ? "BEGIN IMMEDIATE; ROLLBACK" : "SELECT 1 FROM sqlite_master LIMIT 0");
  return isFree || sqlite3_errcode(database) != SQLITE_BUSY;
}

std::string ReadableDatabase(const std::string& path) {
  const std::string directory = std::filesystem::path(path).parent_path();
  if (access(directory.c_str(), W_OK) == 0 || HasFileBeside(path)) return path;
  sqlite3_config(SQLITE_CONFIG_URI, 1);  // a build of SQLite may take such names without it
  return FileUrl(path) + "?immutable=1";
}

}  // namespace feedloom
