#pragma once

#include <string>

namespace feedloom {

// A folder of this process alone inside a profile's work folder, removed at the end: two programs
// that refresh one profile at the same time must not meet in one temporary file. Folders of
// processes that were killed are removed first.
class WorkFolder {
 public:
  // Makes the folder; Path() is empty when that fails.
  explicit WorkFolder(const std::string& parent);
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  int lock_ = -1;  // an open, locked directory: held as long as the process lives
};

}  // namespace feedloom
