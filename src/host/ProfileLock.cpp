#include "host/ProfileLock.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "files/Path.h"

namespace feedloom {

ProfileLock::~ProfileLock() {
  if (handle_ >= 0) close(handle_);
}

Failure ProfileLock::Take(const std::string& profileDir) {
  const std::string file = JoinPath(profileDir, "halvix.lock");
  handle_ = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (handle_ < 0) {
    return fmt::format("Cannot write the file '{}': {}.", file,
                       std::generic_category().message(errno));
  }
  if (flock(handle_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return {};
  return fmt::format("The profile '{}' is in use by another halvix.", profileDir);
}

}  // namespace feedloom
