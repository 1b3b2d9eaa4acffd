// The file operations that making a profile needs. Paths are the file system's own bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/WholeFile.h"

namespace feedloom {

// The file's content; none when it cannot be read.
std::optional<std::string> ReadFile(const std::string& path);

// False also when it cannot be told.
bool IsRegularFile(const std::string& path);

// Makes `path` and the directories above it that are missing, for this user alone.
[[nodiscard]] Failure MakeDirectories(const std::string& path);

// `path` from the root on; an empty one stays empty.
std::string AbsolutePath(const std::string& path);

// The file:// address of an absolute path.
std::string FileUrl(std::string_view path);

// Keeps other programs that lock the same directory waiting until the object ends. A file system
// that knows no locks does not lock.
class DirectoryLock {
 public:
  explicit DirectoryLock(const std::string& directory);
  ~DirectoryLock();
  DirectoryLock(const DirectoryLock&) = delete;
  DirectoryLock& operator=(const DirectoryLock&) = delete;

 private:
  int handle_;
};

}  // namespace feedloom
