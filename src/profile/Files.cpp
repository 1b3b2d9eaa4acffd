#include "profile/Files.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace feedloom {
namespace {

std::string Complaint(std::string_view what, std::string_view path, int error) {
  return fmt::format("{} '{}': {}.", what, path, std::generic_category().message(error));
}

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

std::optional<std::string> ReadFile(const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return std::nullopt;  // a stream would throw
  std::ifstream file(path, std::ios::binary);
  std::string content(std::istreambuf_iterator<char>(file), {});
  if (!file) return std::nullopt;
  return content;
}

bool IsRegularFile(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored);
}

Failure WriteFileWhole(const std::string& path, std::string_view content) {
  const std::string temporary = path + ".new";
  const int handle = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (handle < 0) return Complaint("Cannot create the file", temporary, errno);
  int error = WriteAndSync(handle, content);
  if (close(handle) != 0 && error == 0) error = errno;
  if (error == 0) return MoveIntoPlace(temporary, path);
  unlink(temporary.c_str());
  return Complaint("Cannot write the file", temporary, error);
}

Failure MoveIntoPlace(const std::string& from, const std::string& to) {
  if (std::rename(from.c_str(), to.c_str()) == 0) return {};
  const int error = errno;
  unlink(from.c_str());
  return Complaint("Cannot create the file", to, error);
}

Failure MakeDirectories(const std::string& path) {
  std::filesystem::path made;
  for (const auto& part : std::filesystem::path(path)) {
    made /= part;
    std::error_code ignored;
    if (std::filesystem::is_directory(made, ignored)) continue;
    if (mkdir(made.c_str(), 0700) != 0 && errno != EEXIST) {
      return Complaint("Cannot create the directory", made.string(), errno);
    }
    if (!std::filesystem::is_directory(made, ignored)) {
      return Complaint("Cannot create the directory", made.string(), ENOTDIR);
    }
  }
  return {};
}

std::string AbsolutePath(const std::string& path) {
  std::error_code ignored;
  return path.empty() ? path : std::filesystem::absolute(path, ignored).string();
}

std::string FileUrl(std::string_view path) {
  constexpr std::string_view kPlain =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-._~/";
  std::string url = "file://";
  for (const char c : path) {
    if (kPlain.find(c) != std::string_view::npos) {
      url += c;
    } else {
      url += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return url;
}

DirectoryLock::DirectoryLock(const std::string& directory)
    : handle_(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
  if (handle_ >= 0) flock(handle_, LOCK_EX);
}

DirectoryLock::~DirectoryLock() {
  if (handle_ >= 0) close(handle_);
}

}  // namespace feedloom
