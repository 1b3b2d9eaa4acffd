#include "profile/DailyCopies.h"

#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>

#include "files/Path.h"
#include "threads/Clock.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kKept = 5;
constexpr char kPrefix[] = "rssdb-";

std::string CopyDir(const ProfilePaths& paths) { return JoinPath(paths.dir, "backups"); }

// The newest day comes first.
std::vector<std::string> DailyCopies(const ProfilePaths& paths) {
  std::vector<std::string> copies;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(CopyDir(paths), ignored)) {
    const bool isCopy = entry.path().filename().string().starts_with(kPrefix);
    if (isCopy && entry.path().extension().empty()) copies.push_back(entry.path());
  }
  std::ranges::sort(copies, std::greater());
  return copies;
}

// Empty when there is no such file.
std::string DayOf(const std::string& file) {
  struct stat status {};
  if (stat(file.c_str(), &status) != 0) return {};
  return FormatLocalTime(std::chrono::system_clock::from_time_t(status.st_mtime), "%Y-%m-%d");
}

bool LinkOrCopy(const std::string& from, const std::string& to) {
  std::error_code error;
  fs::remove(to, error);
  fs::create_hard_link(from, to, error);
  if (error) fs::copy_file(from, to, error);
  return !error;
}

}  // namespace

void KeepDailyCopy(const ProfilePaths& paths) {
  const std::string last = paths.database + ".bak";
  const std::string day = DayOf(last);
  if (day.empty() || MakeDirectories(CopyDir(paths))) return;
  const std::string copy = JoinPath(CopyDir(paths), kPrefix + day);
  const std::string unfinished = copy + ".new";
  if (!LinkOrCopy(last, unfinished) || MoveIntoPlace(unfinished, copy)) return;
  const std::vector<std::string> copies = DailyCopies(paths);
  std::error_code ignored;
  for (std::size_t i = kKept; i < copies.size(); ++i) fs::remove(copies[i], ignored);
}

std::vector<std::string> AutomaticCopies(const ProfilePaths& paths) {
  std::vector<std::string> copies = DailyCopies(paths);
  const std::string last = paths.database + ".bak";
  if (IsRegularFile(last)) copies.insert(copies.begin(), last);
  return copies;
}

}  // namespace feedloom
