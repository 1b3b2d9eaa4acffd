#include "profile/SharePaths.h"

#include <fmt/core.h>

#include <filesystem>
#include <system_error>

#include "platform/Path.h"
#include "platform/Registry.h"
#include "profile/Profile.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

bool IsDirectory(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

}  // namespace

SharePaths SharePathsIn(const std::string& shareDir) {
  // The directory of the ini files is last: a repair that was interrupted is done again.
  return {{{kValueImageDir, JoinPath(shareDir, "skin")},
           {kValueCurrentPath, shareDir},
           {kValueIniDir, shareDir}}};
}

Failure RepairSharePaths(const std::string& dir, const std::string& shareDir) {
  const ProfilePaths paths(dir);
  const Registry registry(paths.registry);
  if (!registry.IsReadable()) {
    return fmt::format("The registry file '{}' cannot be read or is damaged.", paths.registry);
  }
  if (IsDirectory(HostConfig(registry).GetIniDir())) return {};
  if (!IsDirectory(shareDir)) return fmt::format("There is no directory '{}'.", shareDir);
  for (const auto& [name, path] : SharePathsIn(AbsolutePath(shareDir))) {
    if (!registry.WriteString(kHostKey, name, path)) {
      return fmt::format("Cannot write the registry file '{}'.", paths.registry);
    }
  }
  return {};
}

}  // namespace feedloom
