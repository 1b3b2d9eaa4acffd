#include "host/HostProfile.h"

#include <fmt/core.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "files/Registry.h"
#include "host/CommandLine.h"
#include "profile/DatabaseRepair.h"
#include "profile/HostWishes.h"
#include "profile/MovedProfile.h"
#include "profile/ProfileBackup.h"
#include "profile/ProfileDefaults.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::chrono::seconds kPatience(1);  // with another program's lock: no window yet

Failure CheckWhole(const ProfilePaths& paths) {
  if (!Registry(paths.registry).IsReadable()) {
    return fmt::format("The registry file '{}' cannot be read or is damaged.", paths.registry);
  }
  if (!NeedsRepair(paths)) return {};
  const bool isThere = IsRegularFile(paths.database);
  const std::string copy = GoodCopy(paths);
  return fmt::format("The database '{}' {}.{}", paths.database,
                     isThere ? "cannot be read or is damaged" : "is missing",
                     copy.empty() ? "" : fmt::format(" There is a copy of it: '{}'.", copy));
}

Failure CheckCodePage(const ProfilePaths& paths, const HostOptions& options) {
  const CodePage present = HostConfig(Registry(paths.registry)).GetCodePage();
  if (!options.codePage || CodePage::FromName(*options.codePage) == present) return {};
  return fmt::format("The profile '{}' keeps its texts in {}; only a new profile can have {}.",
                     paths.dir, present.DeclaredName(),
                     CodePage::FromName(*options.codePage).DeclaredName());
}

Failure CheckWritable(const ProfilePaths& paths) {
  for (const std::string& path : {paths.dir, paths.registry, paths.moduleDir, paths.database}) {
    if (access(path.c_str(), W_OK) != 0) {
      return fmt::format("Cannot write '{}': {}.", path, std::generic_category().message(errno));
    }
  }
  return {};
}

}  // namespace

Failure SetLanguage(const ProfilePaths& paths, const std::string& wanted) {
  const Registry registry(paths.registry);
  const std::string language = ToUpperAscii(wanted);
  if (language.empty() || HostConfig(registry).GetHostLanguage() == language) return {};
  if (registry.WriteString(kHostKey, kValueLanguage, language)) return {};
  return fmt::format("Cannot write the registry file '{}'.", paths.registry);
}

std::string ProfileDir(const HostOptions& options) {
  return options.profileDir.empty() ? DefaultProfileDir() : options.profileDir;
}

Failure OpenProfile(HostProfile& profile, const HostOptions& options) {
  const ProfilePaths& paths = profile.paths;
  if (paths.dir.empty()) return "No home directory for a profile; name one with --profile.";
  if (!ProfileExists(paths)) {
    const std::string language = options.language.value_or(DefaultLanguage());
    const CodePage codePage =
        options.codePage ? CodePage::FromName(*options.codePage) : CodePage::Utf8();
    const Failure failure = CreateProfile(paths.dir, ShareDir(), codePage, language);
    if (failure && !ProfileExists(paths)) return failure;
    profile.isNew = !failure;  // else another program has made it in the same moment
  }
  if (auto failure = CheckWhole(paths)) return failure;
  if (auto failure = CheckCodePage(paths, options)) return failure;
  if (auto failure = CheckWritable(paths)) return failure;
  if (auto failure = profile.lock.Take(paths.dir)) return failure;
  if (auto failure = CompleteRestore(paths)) return failure;
  FollowMove(paths.dir);
  if (auto failure = RepairSharePaths(paths.dir, ShareDir())) return failure;
  if (auto failure = StoreHostWishes(paths.dir)) return failure;
  profile.database = KeepDatabase(paths.database, ShareDir(), kPatience);
  return SetLanguage(paths, options.language.value_or(""));
}

}  // namespace feedloom
