#include "store/Backup.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "store/WriteAheadLog.h"

namespace feedloom {
namespace {

constexpr int kBusyTimeoutMs = 200;

struct CloseHandle {
  void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;

Handle Open(const std::string& path, int flags) {
  sqlite3* raw = nullptr;
  const int status = sqlite3_open_v2(path.c_str(), &raw, flags, nullptr);
  Handle handle(raw);
  if (status != SQLITE_OK) return nullptr;
  sqlite3_busy_timeout(raw, kBusyTimeoutMs);
  return handle;
}

bool Execute(sqlite3* handle, const char* sql) {
  return sqlite3_exec(handle, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

constexpr char kLookAtTables[] =
    "Select 1 From TB_FOLDER, TB_CHANNEL, TB_POST, TB_SCRAP_CHANNEL, TB_SCRAP_POST Limit 0;";

// True when the file has the store's tables: an emptied or foreign file must not replace a copy.
bool HasTables(sqlite3* handle) { return Execute(handle, kLookAtTables); }

// True when SQLite finds no damage: a damaged database must not replace a copy.
bool IsSound(sqlite3* handle) {
  const auto isOk = [](void* result, int, char** cells, char**) {
    *static_cast<bool*>(result) = std::string_view(cells[0]) == "ok";
    return 0;
  };
  bool sound = false;
  sqlite3_exec(handle, "PRAGMA quick_check(1);", isOk, &sound, nullptr);
  return sound;
}

// A copied database is in write-ahead mode if its original is. This ends it, so that the copy is
// one file, which opens everywhere; the exclusive lock needs no index file meanwhile.
constexpr char kOneFile[] =
    "PRAGMA locking_mode = EXCLUSIVE; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;";

// Copies all pages in one step, so that no other program writes between two of them.
bool CopyPages(sqlite3* from, sqlite3* to) {
  Execute(to, kOneFile);
  sqlite3_backup* const backup = sqlite3_backup_init(to, "main", from, "main");
  if (backup == nullptr) return false;
  const int status = sqlite3_backup_step(backup, -1);
  return sqlite3_backup_finish(backup) == SQLITE_OK && status == SQLITE_DONE &&
         Execute(to, kOneFile);
}

bool ReachedDisk(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool synced = fdatasync(file) == 0;
  return close(file) == 0 && synced;
}

}  // namespace

bool BackupDatabase(Store& store) {
  const std::string copy = store.DbPath() + ".bak";
  const std::string unfinished = copy + ".new";
  const MutexLock lock(store.Lock());
  // A killed program may have left them.
  for (const char* suffix : {"", "-wal"}) std::remove((unfinished + suffix).c_str());
  const bool made = CopyDatabase(store.DbPath(), unfinished) &&
                    std::rename(unfinished.c_str(), copy.c_str()) == 0;
  if (!made) std::remove(unfinished.c_str());
  return made;
}

bool CopyDatabase(const std::string& fromPath, const std::string& toPath) {
  const Handle from = Open(fromPath, SQLITE_OPEN_READWRITE);
  if (!from) return false;
  KeepWriteAheadLog(from.get());  // the host program ends it
  if (!HasTables(from.get())) return false;
  const Handle to = Open(toPath, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  return to && CopyPages(from.get(), to.get()) && IsSound(to.get()) && ReachedDisk(toPath);
}

bool LooksDamaged(const std::string& path) {
  const Handle handle = Open(path, SQLITE_OPEN_READWRITE);
  if (!handle) return false;
  KeepWriteAheadLog(handle.get());
  const int status = sqlite3_exec(handle.get(), kLookAtTables, nullptr, nullptr, nullptr);
  return status == SQLITE_NOTADB || status == SQLITE_CORRUPT || status == SQLITE_ERROR;
}

bool IsWholeDatabase(const std::string& path) {
  const Handle handle = Open(path, SQLITE_OPEN_READWRITE);
  if (!handle) return false;
  KeepWriteAheadLog(handle.get());
  return HasTables(handle.get()) && IsSound(handle.get());
}

bool ReplaceContent(const std::string& toPath, const std::string& fromPath) {
  const Handle from = Open(fromPath, SQLITE_OPEN_READONLY);
  const Handle to = Open(toPath, SQLITE_OPEN_READWRITE);
  if (!from || !to) return false;
  KeepWriteAheadLog(to.get());
  sqlite3_backup* const backup = sqlite3_backup_init(to.get(), "main", from.get(), "main");
  if (backup == nullptr) return false;
  const int status = sqlite3_backup_step(backup, -1);
  return sqlite3_backup_finish(backup) == SQLITE_OK && status == SQLITE_DONE;
}

}  // namespace feedloom
