#include "ctl/WorkFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "files/Path.h"
#include "profile/Files.h"

namespace feedloom {
namespace {

constexpr std::string_view kPrefix = "feedloomctl-";

// Locks the directory at `path` and returns its handle, or -1 when another process has locked it.
int LockDirectory(const std::string& path) {
  const int handle = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle >= 0 && flock(handle, LOCK_EX | LOCK_NB) != 0) {
    close(handle);
    return -1;
  }
  return handle;
}

void RemoveAbandoned(const std::string& parent) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(parent, ignored)) {
    if (!entry.path().filename().string().starts_with(kPrefix)) continue;
    const int handle = LockDirectory(entry.path());
    if (handle < 0) continue;
    std::filesystem::remove_all(entry.path(), ignored);
    close(handle);
  }
}

}  // namespace

WorkFolder::WorkFolder(const std::string& parent) {
  std::error_code ignored;
  std::filesystem::create_directories(parent, ignored);
  // The parent stays locked until the new folder is: another program would remove an unlocked one.
  const DirectoryLock turn(parent);
  RemoveAbandoned(parent);
  std::string path = JoinPath(parent, std::string(kPrefix) + "XXXXXX");
  if (mkdtemp(path.data()) == nullptr) return;
  path_ = path;
  lock_ = LockDirectory(path_);
}

WorkFolder::~WorkFolder() {
  if (path_.empty()) return;
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
  if (lock_ >= 0) close(lock_);
}

}  // namespace feedloom
