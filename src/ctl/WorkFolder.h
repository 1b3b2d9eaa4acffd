#pragma once

#include <string>

namespace feedloom {

// A folder of this process alone inside a profile's work folder, so that two programs which refresh
// one profile do not share a temporary file. The destructor removes it. One thread uses the object.
class WorkFolder {
 public:
  // Removes the folders of killed processes from `parent`, and creates a new one. After a failure
  // Path() is empty.
  explicit WorkFolder(const std::string& parent);
  ~WorkFolder();
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  int lock_ = -1;  // the handle of the directory, which stays locked while the process lives
};

}  // namespace feedloom
