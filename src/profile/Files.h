// File operations for profiles. Paths are the file system's bytes. Any thread may call them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "files/WholeFile.h"

namespace feedloom {

// The content of the file at `path`; nullopt when it cannot be read or is a directory.
std::optional<std::string> ReadFile(const std::string& path);

// Whether `path` is a regular file, or a link to one. False also when that cannot be determined.
bool IsRegularFile(const std::string& path);

// Creates the directory `path` and its missing parents with mode 0700. Fails with a message (UTF-8)
// that names the directory and the reason.
[[nodiscard]] Failure MakeDirectories(const std::string& path);

// `path` as an absolute path. An empty path stays empty.
std::string AbsolutePath(const std::string& path);

// The file URL of an absolute path (RFC 8089), with percent-encoded bytes.
std::string FileUrl(std::string_view path);

// Locks a directory until the object is destroyed. The constructor waits for other holders of the
// lock. On a file system without locks it locks nothing.
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
