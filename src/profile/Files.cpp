#include "profile/Files.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace feedloom {

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

Failure MakeDirectories(const std::string& path) {
  std::filesystem::path made;
  for (const auto& part : std::filesystem::path(path)) {
    made /= part;
    std::error_code ignored;
    if (std::filesystem::is_directory(made, ignored)) continue;
    if (mkdir(made.c_str(), 0700) != 0 && errno != EEXIST) {
      return FileError("Cannot create the directory", made.string(), errno);
    }
    if (!std::filesystem::is_directory(made, ignored)) {
      return FileError("Cannot create the directory", made.string(), ENOTDIR);
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
