#include "profile/Profile.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "files/Path.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

std::string EnvironmentValue(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
  return value == nullptr ? std::string() : std::string(value);
}

}  // namespace

ProfilePaths::ProfilePaths(const std::string& profileDir)
    : dir(profileDir),
      registry(JoinPath(dir, "registry.reg")),
      texts(JoinPath(dir, "string.ini")),
      sampleFeed(JoinPath(dir, "sample.xml")),
      moduleDir(JoinPath(dir, "module")),
      module(JoinPath(moduleDir, "feedloom.so")),
      database(JoinPath(moduleDir, "rssdb")),
      workDir(JoinPath(dir, "work")) {}

std::string DefaultProfileDir() {
  const std::string dataHome = EnvironmentValue("XDG_DATA_HOME");
  if (dataHome.starts_with('/')) return JoinPath(dataHome, "halvix");
  const std::string home = EnvironmentValue("HOME");
  return home.empty() ? home : JoinPath(home, ".local/share/halvix");
}

std::string ShareDir() {
  std::error_code ignored;
  const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
  return (program.parent_path().parent_path() / "share" / "feedloom").string();
}

bool ProfileExists(const ProfilePaths& paths) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(paths.registry, ignored));
}

}  // namespace feedloom
