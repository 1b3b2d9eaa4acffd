#include "profile/ProfileBackup.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <map>
#include <string_view>

#include "files/Path.h"
#include "files/Registry.h"
#include "files/RegistryFile.h"
#include "net/HostLogin.h"
#include "profile/DatabaseRepair.h"
#include "profile/KeptDatabase.h"
#include "profile/MovedProfile.h"
#include "store/Backup.h"
#include "store/WriteAheadLog.h"

namespace feedloom {
namespace {

constexpr char kRegistry[] = "registry.reg";
constexpr char kTexts[] = "string.ini";
constexpr char kLogins[] = "logins.reg";

// The profile's files beside the database: their names in a backup and their contents.
using Parts = std::map<std::string, std::string, std::less<>>;

std::map<std::string, std::string, std::less<>> PlacesOf(const ProfilePaths& paths) {
  return {{kRegistry, paths.registry},
          {kTexts, paths.texts},
          {kLogins, HostLoginsPath(Registry(paths.registry))}};
}

std::string PendingFile(const ProfilePaths& paths) { return JoinPath(paths.dir, "restore.db"); }

// Waits for other programs' locks: a locked database must not pass for a damaged one.
Failure CheckUnlocked(const std::string& path, DatabaseUse use) {
  constexpr std::chrono::seconds kBackupPatience(5);
  const KeptDatabase database = OpenDatabase(path, SQLITE_OPEN_READWRITE);
  if (database) KeepWriteAheadLog(database.get());
  if (WaitForLocks(database.get(), use, kBackupPatience)) return {};
  return fmt::format("The database '{}' is in use by another program.", path);
}

// One that a file can be copied into, for its user alone.
Failure MakeEmptyFile(const std::string& path) {
  unlink(path.c_str());  // left by an interrupted call
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (file < 0) return FileError("Cannot write the file", path, errno);
  close(file);
  return {};
}

bool AddPart(sqlite3* database, const std::string& name, const std::string& content) {
  constexpr char kInsert[] = "INSERT INTO FEEDLOOM_BACKUP VALUES(?1, ?2)";
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database, kInsert, -1, &statement, nullptr) != SQLITE_OK) return false;
  sqlite3_bind_text(statement, 1, name.c_str(), -1, SQLITE_TRANSIENT);
  sqlite3_bind_blob64(statement, 2, content.data(), content.size(), SQLITE_TRANSIENT);
  sqlite3_step(statement);
  return sqlite3_finalize(statement) == SQLITE_OK;
}

bool AddParts(const std::string& path, const Parts& parts) {
  const KeptDatabase database = OpenDatabase(path, SQLITE_OPEN_READWRITE);
  bool isDone = database && Execute(database.get(), "BEGIN") &&
                Execute(database.get(), "CREATE TABLE FEEDLOOM_BACKUP (name TEXT, content BLOB)");
  for (const auto& [name, content] : parts)
    isDone = isDone && AddPart(database.get(), name, content);
  return isDone && Execute(database.get(), "COMMIT");
}

// The parts of the backup at `path`; none at all when it is no backup.
Parts ReadParts(const std::string& path) {
  Parts parts;
  const KeptDatabase database = OpenDatabase(path, SQLITE_OPEN_READONLY);
  sqlite3_stmt* statement = nullptr;
  constexpr char kSelect[] = "SELECT name, content FROM FEEDLOOM_BACKUP";
  if (!database ||
      sqlite3_prepare_v2(database.get(), kSelect, -1, &statement, nullptr) != SQLITE_OK) {
    return parts;
  }
  while (sqlite3_step(statement) == SQLITE_ROW) {
    const auto* const name = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    const auto* const content = static_cast<const char*>(sqlite3_column_blob(statement, 1));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, 1));
    if (name != nullptr) parts[name] = content == nullptr ? "" : std::string(content, size);
  }
  sqlite3_finalize(statement);
  return parts;
}

bool HasWholeRegistry(const Parts& parts) {
  const auto registry = parts.find(kRegistry);
  return registry != parts.end() && ParseRegistryFile(registry->second).has_value();
}

Failure CopyTo(const std::string& from, const std::string& to, const Parts& more) {
  const std::string unfinished = to + ".new";
  if (auto failure = MakeEmptyFile(unfinished)) return failure;
  if (CopyDatabase(from, unfinished) && (more.empty() || AddParts(unfinished, more)))
    return MoveIntoPlace(unfinished, to);
  unlink(unfinished.c_str());
  return fmt::format("Cannot copy the database '{}' to '{}'.", from, to);
}

Failure RestoreDatabase(const ProfilePaths& paths, const std::string& backup) {
  const std::string& database = paths.database;
  if (IsWholeDatabase(database)) {
    if (!ReplaceContent(database, backup)) {
      return fmt::format("The database '{}' is in use by another program.", database);
    }
  } else {
    if (auto failure = PutAside(paths)) return failure;
    if (auto failure = CopyTo(backup, database, {})) return failure;
  }
  const KeptDatabase restored = OpenDatabase(database, SQLITE_OPEN_READWRITE);
  if (restored && Execute(restored.get(), "DROP TABLE IF EXISTS FEEDLOOM_BACKUP")) return {};
  return fmt::format("Cannot write the database '{}'.", database);
}

}  // namespace

bool IsRestorePending(const ProfilePaths& paths) { return IsRegularFile(PendingFile(paths)); }

std::string FormerProfile(const ProfilePaths& paths) {
  return JoinPath(paths.dir, "before-restore.db");
}

bool HasLogins(const ProfilePaths& paths) {
  return IsRegularFile(HostLoginsPath(Registry(paths.registry)));
}

Failure BackUpProfile(const ProfilePaths& paths, const std::string& file, BackedUpLogins logins) {
  Parts parts;
  for (const auto& [name, place] : PlacesOf(paths)) {
    const auto content = ReadFile(place);
    if (content && (name != kLogins || logins == BackedUpLogins::Included)) parts[name] = *content;
  }
  if (!HasWholeRegistry(parts)) {
    return fmt::format("The registry file '{}' cannot be read or is damaged.", paths.registry);
  }
  if (auto failure = CheckUnlocked(paths.database, DatabaseUse::Read)) return failure;
  return CopyTo(paths.database, file, parts);
}

bool ChangeBackup(const std::string& file, const RegistryEntry& entry,
                  const std::function<bool(sqlite3*)>& change) {
  auto entries = ParseRegistryFile(ReadParts(file)[kRegistry]);
  if (!entries) return false;
  std::erase_if(*entries, [&](const RegistryEntry& each) {
    return each.key == entry.key && each.name == entry.name;
  });
  entries->insert(entries->begin(), entry);
  const KeptDatabase database = OpenDatabase(file, SQLITE_OPEN_READWRITE);
  return database && change(database.get()) &&
         Execute(database.get(), "DELETE FROM FEEDLOOM_BACKUP WHERE name = 'registry.reg'") &&
         AddPart(database.get(), kRegistry, FormatRegistryFile(*entries));
}

Failure TakeBackup(const ProfilePaths& paths, const std::string& file) {
  if (!HasWholeRegistry(ReadParts(file)) || !IsWholeDatabase(file)) {
    return fmt::format("'{}' is no backup of a profile, or it is damaged.", file);
  }
  if (auto failure = CheckUnlocked(paths.database, DatabaseUse::Write)) return failure;
  const std::string pending = PendingFile(paths);
  const std::string taken = pending + ".taken";  // `file` may be the one that is written next
  if (auto failure = CopyTo(file, taken, {})) return failure;
  if (IsWholeDatabase(paths.database)) {
    if (auto failure = BackUpProfile(paths, FormerProfile(paths), BackedUpLogins::Included)) {
      unlink(taken.c_str());
      return failure;
    }
  }
  return MoveIntoPlace(taken, pending);
}

Failure CompleteRestore(const ProfilePaths& paths) {
  if (!IsRestorePending(paths)) return {};
  const std::string pending = PendingFile(paths);
  if (auto failure = CheckUnlocked(paths.database, DatabaseUse::Write)) return failure;
  if (auto failure = RestoreDatabase(paths, pending)) return failure;
  const auto places = PlacesOf(paths);
  for (const auto& [name, content] : ReadParts(pending)) {
    const auto place = places.find(name);
    if (place == places.end()) continue;
    if (auto failure = WriteFileWhole(place->second, content)) return failure;
  }
  FollowMove(paths.dir);
  ForgetServers(paths);
  unlink(pending.c_str());
  return {};
}

}  // namespace feedloom
