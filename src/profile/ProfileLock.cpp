#include "profile/ProfileLock.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <pwd.h>
#include <sys/file.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <sstream>
#include <system_error>
#include <tuple>

#include "files/Path.h"

namespace feedloom {
namespace {

std::string LockFile(const std::string& profileDir) { return JoinPath(profileDir, "halvix.lock"); }

std::string UserName() {
  const passwd* const entry = getpwuid(geteuid());
  return entry != nullptr ? entry->pw_name : std::to_string(geteuid());
}

// Nobody else writes meanwhile. After a failure the holder is not known.
void WriteHolder(int handle) {
  const LockHolder holder = ThisHolder();
  const std::string text = holder.machine + '\n' + holder.user + '\n';
  std::ignore = pwrite(handle, text.data(), text.size(), 0) >= 0 &&
                ftruncate(handle, off_t(text.size())) == 0;
}

}  // namespace

LockHolder ThisHolder() {
  std::array<char, 256> machine{};
  gethostname(machine.data(), machine.size() - 1);
  return {machine.data(), UserName()};
}

ProfileLock::~ProfileLock() { Close(); }

void ProfileLock::Close() {
  if (handle_ >= 0) close(handle_);
}

Failure ProfileLock::Take(const std::string& profileDir) {
  const std::string file = LockFile(profileDir);
  Close();
  isHeldElsewhere_ = false;
  handle_ = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (handle_ < 0) {
    return fmt::format("Cannot write the file '{}': {}.", file,
                       std::generic_category().message(errno));
  }
  isHeldElsewhere_ = flock(handle_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  if (!isHeldElsewhere_) return WriteHolder(handle_), Failure();
  return fmt::format("The profile '{}' is in use by another halvix.", profileDir);
}

LockHolder ProfileLock::Holder(const std::string& profileDir) {
  std::istringstream text(ReadFile(LockFile(profileDir)).value_or(""));
  LockHolder holder;
  std::getline(text, holder.machine);
  std::getline(text, holder.user);
  return holder;
}

}  // namespace feedloom
