#include "profile/MovedProfile.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>
#include <tuple>
#include <vector>

#include "files/Path.h"
#include "files/Registry.h"
#include "files/RegistryKeys.h"
#include "profile/KeptDatabase.h"
#include "profile/Profile.h"
#include "profile/ProfileDatabase.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPaths[] = {kValueWorkDir, kValueImageDir, kValueCurrentPath, kValueIniDir};

bool IsSamePlace(const std::string& one, const std::string& other) {
  std::error_code ignored;
  return one == other || fs::equivalent(one, other, ignored);
}

// Where the profile was, to its knowledge. Empty when it does not tell.
std::string FormerPlace(const Registry& registry) {
  const std::string known = registry.ReadString(kHostKey, kValueProfileDir).value_or("");
  if (!known.empty()) return known;
  const fs::path work = registry.ReadString(kHostKey, kValueWorkDir).value_or("");
  const fs::path dir = work.parent_path();
  std::error_code ignored;
  const bool wasProfile = work.filename() == "work" &&
                          (!fs::exists(dir, ignored) || ProfileExists(ProfilePaths(dir.string())));
  return wasProfile ? dir.string() : "";
}

// `value` with `here` in place of `former`, when it begins with that.
std::string Moved(const std::string& value, const std::string& former, const std::string& here) {
  return value.starts_with(former) ? here + value.substr(former.size()) : value;
}

}  // namespace

void FollowMove(const std::string& dir) {
  const ProfilePaths paths(dir);
  const Registry registry(paths.registry);
  const std::string former = FormerPlace(registry);
  if (former == dir) return;
  std::vector<RegistryEntry> entries = {{kHostKey, kValueProfileDir, dir}};
  if (!former.empty() && !IsSamePlace(former, dir)) {
    const std::string from = WithTrailingSeparator(former);
    const std::string to = WithTrailingSeparator(dir);
    if (!MoveAddresses(paths.database, FileUrl(from), FileUrl(to))) return;
    for (const char* const name : kPaths) {
      const auto path = registry.ReadString(kHostKey, name);
      if (path) entries.push_back({kHostKey, name, Moved(*path, from, to)});
    }
  }
  std::ignore = registry.Write(entries);
}

}  // namespace feedloom
