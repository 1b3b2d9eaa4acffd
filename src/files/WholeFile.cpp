#include "files/WholeFile.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace feedloom {
namespace {

// Writes all of `content` to the open file `handle` and waits until it is on the disk. Returns 0 or
// the error number.
int WriteAndSync(int handle, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = write(handle, content.data(), content.size());
    if (written < 0 && errno != EINTR) return errno;
    if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
  }
  // A pipe cannot be synchronized.
  return fsync(handle) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno;
}

// Writes `content` to the open file `handle` and closes it. A `handle` of -1 is a failure to open
// it, told by errno. `path` is its name.
Failure Fill(int handle, const std::string& path, std::string_view content) {
  if (handle < 0) return FileError("Cannot create the file", path, errno);
  int error = WriteAndSync(handle, content);
  if (close(handle) != 0 && error == 0) error = errno;
  if (error == 0) return {};
  return FileError("Cannot write the file", path, error);
}

// Writes `content` to the new file `temporary`, open as `handle`, closes it, and renames it to
// `path`. After a failure `temporary` is removed.
Failure FillAndMove(int handle, const std::string& temporary, const std::string& path,
                    std::string_view content) {
  if (Failure failure = Fill(handle, temporary, content)) {
    if (handle >= 0) unlink(temporary.c_str());
    return failure;
  }
  return MoveIntoPlace(temporary, path);
}

// The path that the symbolic links at `path` lead to, whether a file exists there or not.
std::string BehindLinks(std::filesystem::path path) {
  constexpr int kMostLinks = 40;  // ends at a circle of links
  std::error_code failed;
  for (int link = 0; link < kMostLinks && is_symlink(path, failed); ++link) {
    path = path.parent_path() / read_symlink(path, failed);
  }
  return path.string();
}

}  // namespace

Failure WriteFileWhole(const std::string& path, std::string_view content) {
  const std::string temporary = path + ".new";
  const int handle = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  return FillAndMove(handle, temporary, path, content);
}

Failure SaveFile(const std::string& path, std::string_view content) {
  const std::string target = BehindLinks(path);
  struct stat old {};
  const bool isThere = stat(target.c_str(), &old) == 0;
  if (isThere && !S_ISREG(old.st_mode)) {
    return Fill(open(target.c_str(), O_WRONLY | O_CLOEXEC), target, content);
  }
  const auto folder = std::filesystem::path(target).parent_path();
  const std::string temporary = folder / fmt::format(".feedloom-{}.new", getpid());
  const int handle = open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (handle >= 0 && isThere) fchmod(handle, old.st_mode & 0777);
  return FillAndMove(handle, temporary, target, content);
}

Failure MoveIntoPlace(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return {};
  const int error = errno;
  unlink(from.c_str());
  return FileError("Cannot create the file", to, error);
}

std::string FileError(std::string_view what, std::string_view path, int error) {
  return fmt::format("{} '{}': {}.", what, path, std::generic_category().message(error));
}

}  // namespace feedloom
