#include "profile/WriteAhead.h"

#include <fmt/core.h>
#include <sqlite3.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <string_view>

#include "files/Registry.h"
#include "files/RegistryKeys.h"

namespace feedloom {
namespace {

constexpr char kWriteAhead[] = "PRAGMA journal_mode = WAL";
constexpr char kOlderMode[] = "PRAGMA journal_mode = DELETE";

bool LiesOnNetwork(const std::string& path) {
  struct statfs system {};
  return statfs(path.c_str(), &system) == 0 &&
         IsOnNetwork(static_cast<unsigned long>(system.f_type));
}

bool IsInWriteAheadMode(sqlite3* database) {
  std::string_view mode;
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, "PRAGMA journal_mode", -1, &statement, nullptr);
  if (sqlite3_step(statement) == SQLITE_ROW)
    mode = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
  const bool isWriteAhead = mode == "wal";
  sqlite3_finalize(statement);
  return isWriteAhead;
}

// Whether the last statement has failed for want of shared memory. That of a full disk is another
// failure.
bool LacksSharedMemory(sqlite3* database) {
  constexpr int kFailures[] = {SQLITE_CANTOPEN, SQLITE_IOERR_SHMOPEN, SQLITE_IOERR_SHMMAP,
                               SQLITE_IOERR_SHMLOCK};
  return std::ranges::find(kFailures, sqlite3_extended_errcode(database)) != std::end(kFailures);
}

// Tries it with another database beside that at `path`: a file that has been put into the mode in
// vain could not be read any more.
bool RefusesWriteAhead(const std::string& path) {
  if (LiesOnNetwork(path)) return true;
  const std::string tried = fmt::format("{}.mode{}", path, getpid());
  bool isRefused = false;
  if (const auto database = OpenDatabase(tried, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) {
    Execute(database.get(), "PRAGMA synchronous = OFF");
    Execute(database.get(), kWriteAhead);
    const bool works = Execute(database.get(), "CREATE TABLE TB_TRIED(id)");
    isRefused = works ? !IsInWriteAheadMode(database.get()) : LacksSharedMemory(database.get());
  }
  for (const char* const suffix : {"", "-wal", "-shm", "-journal"})
    unlink((tried + suffix).c_str());
  return isRefused;
}

bool IsProfileDatabase(sqlite3* database) {
  return Execute(database, "SELECT 1 FROM TB_CHANNEL, TB_POST LIMIT 0");
}

bool MustLeaveWriteAhead(sqlite3* database, const std::string& path) {
  if (sqlite3_db_readonly(database, "main") == 1) return false;
  return IsProfileDatabase(database) ? LiesOnNetwork(path) && IsInWriteAheadMode(database)
                                     : LacksSharedMemory(database);
}

// A connection that has the database for itself keeps in its own memory what others share.
void LeaveWriteAhead(const std::string& path) {
  const KeptDatabase database = OpenDatabase(path, SQLITE_OPEN_READWRITE);
  if (!database) return;
  Execute(database.get(), "PRAGMA locking_mode = EXCLUSIVE");
  Execute(database.get(), kOlderMode);
}

}  // namespace

KeptDatabase OpenInBestMode(const std::string& path, std::chrono::milliseconds patience) {
  KeptDatabase database = OpenDatabase(path, SQLITE_OPEN_READWRITE);
  if (database && MustLeaveWriteAhead(database.get(), path)) {
    database.reset();  // it would keep the other one from having the database for itself
    LeaveWriteAhead(path);
    database = OpenDatabase(path, SQLITE_OPEN_READWRITE);
  }
  if (!database) return nullptr;
  sqlite3_busy_timeout(database.get(), static_cast<int>(patience.count()));
  const bool canEnter = IsProfileDatabase(database.get()) && !IsInWriteAheadMode(database.get()) &&
                        sqlite3_db_readonly(database.get(), "main") == 0;
  if (canEnter && !RefusesWriteAhead(path)) Execute(database.get(), kWriteAhead);
  return database;
}

bool MustUseOlderMode(sqlite3* database) {
  if (database == nullptr || sqlite3_db_readonly(database, "main") == 1) return false;
  if (!IsProfileDatabase(database)) return false;
  return !IsInWriteAheadMode(database) && RefusesWriteAhead(sqlite3_db_filename(database, "main"));
}

// A registry that cannot be written makes no news: it would be told at each start.
bool IsOlderModeNews(sqlite3* database, const Registry& registry) {
  const bool wasTold = registry.ReadString(kHostKey, kValueJournal) == kJournalOlder;
  const bool isOlder = MustUseOlderMode(database);
  if (isOlder == wasTold) return false;
  return registry.WriteString(kHostKey, kValueJournal, isOlder ? kJournalOlder : "") && isOlder;
}

// As linux/magic.h and the kernel's sources number them. What FUSE shows may lie here or elsewhere:
// it is tried.
bool IsOnNetwork(unsigned long fileSystem) {
  constexpr unsigned long kRemote[] = {
      0x6969,      // NFS
      0x517B,      // SMB
      0xFF534D42,  // CIFS
      0xFE534D42,  // SMB 2 and 3
      0x01021997,  // 9P
      0x00C36400,  // Ceph
      0x5346414F,  // AFS
      0x73757245,  // Coda
      0x564C,      // NCP
      0x47504653,  // GPFS
      0x0BD00BD0,  // Lustre
      0x01161970,  // GFS2
      0x7461636F,  // OCFS2
  };
  return std::ranges::find(kRemote, fileSystem & 0xFFFFFFFF) != std::end(kRemote);
}

}  // namespace feedloom
