#include "store/Store.h"

#include "platform/Path.h"

namespace feedloom {
namespace {

constexpr std::string_view kDatabaseName = "rssdb";
constexpr std::chrono::milliseconds kPause{10};

}  // namespace

std::string GetDbPath(std::string_view modulePath) {
  if (modulePath.empty()) return '\\' + std::string(kDatabaseName);
  const auto cut = modulePath.rfind(PathSeparator(modulePath));
  if (cut == std::string_view::npos) return std::string(kDatabaseName);
  return std::string(modulePath.substr(0, cut + 1)).append(kDatabaseName);
}

Store::Store(std::string dbPath, CodePage codePage, Clock& clock, ErrorReport report)
    : dbPath_(std::move(dbPath)), codePage_(codePage), clock_(clock), report_(std::move(report)) {}

void Store::EnterStoreBusy() {
  if (busy_) return;
  clock_.Pause(kPause);
  busy_ = true;
}

void Store::LeaveStoreBusy() {
  if (!busy_) return;
  clock_.Pause(kPause);
  busy_ = false;
}

}  // namespace feedloom
