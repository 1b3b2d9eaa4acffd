#include "profile/DatabaseRepair.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "files/Path.h"
#include "files/Registry.h"
#include "files/WorkFiles.h"
#include "profile/DailyCopies.h"
#include "skin/HostConfig.h"
#include "store/Backup.h"
#include "threads/Clock.h"

namespace feedloom {

namespace fs = std::filesystem;

bool NeedsRepair(const ProfilePaths& paths) {
  return !IsRegularFile(paths.database) || LooksDamaged(paths.database);
}

std::string GoodCopy(const ProfilePaths& paths) {
  const std::vector<std::string> copies = AutomaticCopies(paths);
  const auto good = std::ranges::find_if(copies, IsWholeDatabase);
  return good == copies.end() ? "" : *good;
}

Failure RestoreCopy(const ProfilePaths& paths, const std::string& copy) {
  const std::string unfinished = paths.database + ".restored";
  std::error_code error;
  fs::copy_file(copy, unfinished, fs::copy_options::overwrite_existing, error);
  if (error) return fmt::format("Cannot copy '{}': {}.", copy, error.message());
  if (auto failure = PutAside(paths)) return failure;
  ForgetServers(paths);
  return MoveIntoPlace(unfinished, paths.database);
}

Failure StartEmpty(const ProfilePaths& paths, const std::string& shareDir) {
  if (auto failure = PutAside(paths)) return failure;
  ForgetServers(paths);
  const HostConfig config{Registry(paths.registry)};
  return MakeDatabase(paths, shareDir, config.GetCodePage(), config.GetHostLanguage());
}

void ForgetServers(const ProfilePaths& paths) {
  const std::string workDir = HostConfig(Registry(paths.registry)).GetWorkDir();
  std::error_code ignored;
  fs::remove(JoinPath(workDir, kFeedMemoryFile), ignored);
}

Failure PutAside(const ProfilePaths& paths) {
  const std::string name =
      paths.database + ".damaged" + FormatLocalTime(SystemClock().Now(), "-%Y-%m-%d-%H%M%S");
  std::string aside = name;
  std::error_code ignored;
  for (int more = 2; fs::exists(aside, ignored); ++more) aside = fmt::format("{}-{}", name, more);
  for (const char* const suffix : {"-wal", "-shm", "-journal", ""}) {
    std::error_code error;
    const std::string from = paths.database + suffix;
    if (fs::exists(from, error)) fs::rename(from, aside + suffix, error);
    if (error) return fmt::format("Cannot rename '{}': {}.", from, error.message());
  }
  return {};
}

}  // namespace feedloom
