#pragma once

#include <string>

namespace feedloom {

// A file of the work folder that must not outlive its use: whatever stands at `path` is removed
// when the object ends. The object neither creates nor opens it.
class TempFile {
 public:
  explicit TempFile(std::string path) : path_(std::move(path)) {}
  ~TempFile() { Remove(); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;

  const std::string& Path() const { return path_; }
  void Remove() const;

 private:
  const std::string path_;
};

}  // namespace feedloom
