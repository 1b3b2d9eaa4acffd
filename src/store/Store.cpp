#include "store/Store.h"

#include "files/Path.h"

namespace feedloom {
namespace {

constexpr std::string_view kDatabaseName = "rssdb";
constexpr std::chrono::milliseconds kPause{10};
// How long a statement waits for another program: what a user takes for a moment, or a worker for
// the other's longest transaction.
constexpr std::chrono::milliseconds kInterfaceWait{1'000};
constexpr std::chrono::milliseconds kWorkerWait{5'000};

}  // namespace

std::string GetDbPath(std::string_view modulePath) {
  if (modulePath.empty()) return '\\' + std::string(kDatabaseName);
  const auto cut = modulePath.rfind(PathSeparator(modulePath));
  if (cut == std::string_view::npos) return std::string(kDatabaseName);
  return std::string(modulePath.substr(0, cut + 1)).append(kDatabaseName);
}

Store::Store(std::string dbPath, CodePage codePage, Clock& clock, ErrorReport report,
             std::thread::id interfaceThread)
    : dbPath_(std::move(dbPath)),
      codePage_(codePage),
      clock_(clock),
      report_(std::move(report)),
      interfaceThread_(interfaceThread) {}

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

// The clang analysis cannot follow that the lock is held again at the end.
bool Store::WaitForOtherProgram(int tries) FEEDLOOM_NO_THREAD_SAFETY_ANALYSIS {
  const bool isInterface = std::this_thread::get_id() == interfaceThread_;
  if (tries * kPause >= (isInterface ? kInterfaceWait : kWorkerWait)) return false;
  lock_.unlock();
  clock_.Pause(kPause);
  lock_.lock();
  return true;
}

}  // namespace feedloom
