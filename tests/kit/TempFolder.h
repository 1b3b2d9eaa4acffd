#pragma once

#include <gtest/gtest.h>

#include <filesystem>

namespace feedloom {

// A new, empty directory that is removed with all its content when the object ends.
class TempFolder {
 public:
  TempFolder();
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return path_; }  // absolute, without a separator at the end
  // The path of `name` inside the folder, whether it exists or not.
  std::string File(std::string_view name) const;

  // Creates or replaces the file `name`; its path comes back.
  std::string Write(std::string_view name, std::string_view bytes) const;
  // The file's content; fails the test and gives "" when it cannot be read.
  std::string Read(std::string_view name) const;

  std::vector<std::string> Names() const;  // of all entries of the folder, sorted

 private:
  std::string path_;
};

}  // namespace feedloom
