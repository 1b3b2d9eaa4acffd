#include "store/WriteMark.h"

#include <sys/stat.h>

namespace feedloom {
namespace {

WriteMark::File MarkOf(const std::string& path) {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) return {};
  return {found.st_size, found.st_mtim.tv_sec * 1'000'000'000 + found.st_mtim.tv_nsec};
}

}  // namespace

WriteMark ReadWriteMark(const Store& store) {
  return {{MarkOf(store.DbPath()), MarkOf(store.DbPath() + "-wal")}};
}

}  // namespace feedloom
