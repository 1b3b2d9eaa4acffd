#include "kit/TempFolder.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <system_error>

#include "files/Path.h"

namespace feedloom {

namespace fs = std::filesystem;

TempFolder::TempFolder() : path_(fs::temp_directory_path() / "feedloom-test-XXXXXX") {
  if (mkdtemp(path_.data()) == nullptr) throw fs::filesystem_error("mkdtemp", path_, {});
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string TempFolder::File(std::string_view name) const { return JoinPath(path_, name); }

std::string TempFolder::Write(std::string_view name, std::string_view bytes) const {
  std::string path = File(name);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  EXPECT_TRUE(file.flush()) << "cannot write " << path;
  return path;
}

std::string TempFolder::Read(std::string_view name) const {
  std::ifstream file(File(name), std::ios::binary);
  EXPECT_TRUE(file) << "cannot read " << File(name);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> TempFolder::Names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename());
  std::ranges::sort(names);
  return names;
}

}  // namespace feedloom
