#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// A file that stands in memory only, for readers that take a path. Any thread may use an object,
// one at a time.
class MemoryFile {
 public:
  // Writes `content`. When the system refuses the file, Path names none that can be read.
  explicit MemoryFile(std::string_view content);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  // As long as the object lives.
  const std::string& Path() const { return path_; }

 private:
  int handle_;
  std::string path_;
};

}  // namespace feedloom
