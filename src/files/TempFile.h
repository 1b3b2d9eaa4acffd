#pragma once

#include <string>

namespace feedloom {

// Removes the file at `path` when the object is destroyed. The object neither creates nor opens the
// file. `path` consists of the file system's bytes.
class TempFile {
 public:
  explicit TempFile(std::string path) : path_(std::move(path)) {}
  ~TempFile() { Remove(); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const std::string& Path() const { return path_; }
  // Removes the file now. It is no error when there is none.
  void Remove() const;

 private:
  const std::string path_;
};

}  // namespace feedloom
