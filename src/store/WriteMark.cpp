#include "store/WriteMark.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>

namespace feedloom {
namespace {

using std::chrono::nanoseconds;

constexpr nanoseconds kClockTick = std::chrono::milliseconds(20);  // of file systems, at most

WriteMark::File MarkOf(const std::string& path) {
  struct stat found {};
  if (stat(path.c_str(), &found) != 0) return {};
  return {found.st_size, found.st_mtim.tv_sec * 1'000'000'000 + found.st_mtim.tv_nsec};
}

}  // namespace

WriteMark ReadWriteMark(const Store& store) {
  const nanoseconds now = std::chrono::system_clock::now().time_since_epoch();
  const WriteMark::File database = MarkOf(store.DbPath());
  const WriteMark::File log = MarkOf(store.DbPath() + "-wal");
  const nanoseconds last(std::max(database.written, log.written));
  return {{database, log}, last < now - kClockTick};
}

bool MayHaveChanged(const WriteMark& earlier, const WriteMark& later) {
  return !earlier.isSettled || earlier.files != later.files;
}

}  // namespace feedloom
