#include "profile/SharePaths.h"

#include <fmt/core.h>

#include <filesystem>
#include <system_error>
#include <tuple>

#include "files/Path.h"
#include "files/Registry.h"
#include "profile/Profile.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

bool IsDirectory(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_directory(path, ignored);
}

std::string SkinDir(const std::string& shareDir, const std::string& skin) {
  return JoinPath(JoinPath(shareDir, "skin"), skin);
}

bool IsSkin(const std::string& imageDir) { return IsRegularFile(JoinPath(imageDir, kSkinIni)); }

}  // namespace

std::vector<RegistryEntry> SharePathsIn(const std::string& shareDir, const std::string& skin) {
  const std::string skinDir = SkinDir(shareDir, skin);
  return {{kHostKey, kValueImageDir, skinDir},
          {kHostKey, kValueCurrentPath, skinDir},
          {kHostKey, kValueIniDir, shareDir}};
}

std::string SkinName(const HostConfig& config) {
  return std::filesystem::path(config.GetImageDir()).parent_path().filename().string();
}

Failure ChooseSkin(const std::string& dir, const std::string& shareDir, const std::string& skin) {
  if (!IsSkin(SkinDir(shareDir, skin))) {
    return fmt::format("There is no skin in '{}'.", SkinDir(shareDir, skin));
  }
  const ProfilePaths paths(dir);
  if (Registry(paths.registry).Write(SharePathsIn(AbsolutePath(shareDir), skin))) return {};
  return fmt::format("Cannot write the registry file '{}'.", paths.registry);
}

Failure RepairSharePaths(const std::string& dir, const std::string& shareDir) {
  const ProfilePaths paths(dir);
  const Registry registry(paths.registry);
  if (!registry.IsReadable()) {
    return fmt::format("The registry file '{}' cannot be read or is damaged.", paths.registry);
  }
  const HostConfig config(registry);
  // A failure is ignored: without the work directory only downloads fail.
  std::ignore = MakeDirectories(config.GetWorkDir());
  if (IsDirectory(config.GetIniDir()) && IsSkin(config.GetImageDir())) return {};
  if (!IsDirectory(shareDir)) return fmt::format("There is no directory '{}'.", shareDir);
  const bool isShipped = IsSkin(SkinDir(shareDir, SkinName(config)));
  return ChooseSkin(dir, shareDir, isShipped ? SkinName(config) : kLightSkin);
}

}  // namespace feedloom
