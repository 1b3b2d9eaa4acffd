#include "platform/WholeFile.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace feedloom {
namespace {

// Writes all of `content` and waits until the disk has it; 0 or the error number.
int WriteAndSync(int handle, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = write(handle, content.data(), content.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
  }
  return fsync(handle) == 0 ? 0 : errno;
}

}  // namespace

Failure WriteFileWhole(const std::string& path, std::string_view content, Readers readers) {
  const std::string temporary = path + ".new";
  const mode_t mode = readers == Readers::Owner ? 0600 : 0666;
  const int handle = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode);
  if (handle < 0) return FileComplaint("Cannot create the file", temporary, errno);
  int error = WriteAndSync(handle, content);
  if (close(handle) != 0 && error == 0) error = errno;
  if (error == 0) return MoveIntoPlace(temporary, path);
  unlink(temporary.c_str());
  return FileComplaint("Cannot write the file", temporary, error);
}

Failure MoveIntoPlace(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return {};
  const int error = errno;
  unlink(from.c_str());
  return FileComplaint("Cannot create the file", to, error);
}

std::string BehindLinks(const std::string& path) {
  std::error_code failed;
  const auto target = std::filesystem::canonical(path, failed);
  return failed ? path : target.string();
}

std::string FileComplaint(std::string_view what, std::string_view path, int error) {
  return fmt::format("{} '{}': {}.", what, path, std::generic_category().message(error));
}

}  // namespace feedloom
