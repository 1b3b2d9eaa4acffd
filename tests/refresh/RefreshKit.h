// A real database, a work folder and a local server for refreshes and checks of addresses, a clock
// that runs out, and a count of threads.
#pragma once

#include <sys/resource.h>

#include "kit/FeedServer.h"
#include "kit/RecordingTarget.h"
#include "refresh/RefreshRun.h"
#include "store/StoreKit.h"

namespace feedloom {

struct RefreshKit {
  SharedServices Services() { return Services(db.Clock()); }
  // `clock` is the test's own and outlives the services.
  SharedServices Services(Clock& clock) {
    return std::make_shared<FetchServices>(
        FetchServices{db.Shared(), Registry(folder.File("registry.reg")), clock, folder.Path(),
                      FeedMemoryPath(memoryFolder.Path()), isLenient});
  }
  std::vector<std::string> WorkFiles() const { return folder.Names(); }

  TestStore db;
  TempFolder folder, memoryFolder;  // the latter holds the file of FeedMemory
  FeedServer server;
  bool isLenient = false;
};

// A manual clock on which pauses as long as `limit`, by default a feed check's time limit, last
// until the test calls RunOut. Any thread may use it.
class CheckClock : public ManualClock {
 public:
  explicit CheckClock(std::chrono::milliseconds limit = RefreshLimits().timeLimit)
      : limit_(limit) {}

  void Pause(std::chrono::milliseconds duration, std::stop_token stop = {}) override {
    if (duration < limit_) return ManualClock::Pause(duration, stop);
    std::stop_source end;
    const auto toEnd = [&end] { end.request_stop(); };
    const std::stop_callback onStop(stop, toEnd), onRunOut(ranOut_.get_token(), toEnd);
    SystemClock().Pause(std::chrono::hours(24), end.get_token());
  }

  void RunOut() { ranOut_.request_stop(); }

 private:
  const std::chrono::milliseconds limit_;
  std::stop_source ranOut_;
};

inline std::ptrdiff_t ThreadCount() {  // of this process
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

// Of those, the number that give way to the interface.
inline std::ptrdiff_t ThreadsInTheBackground() {
  std::filesystem::directory_iterator tasks("/proc/self/task");
  return std::count_if(begin(tasks), end(tasks), [](const auto& task) {
    const auto id = static_cast<id_t>(std::stoul(task.path().filename()));
    return getpriority(PRIO_PROCESS, id) >= 5;
  });
}

// Waits until the process has `count` threads; false when it never has. A thread that was joined
// leaves the system's list a moment later.
inline bool ThreadCountComesTo(std::ptrdiff_t count) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (ThreadCount() != count && std::chrono::steady_clock::now() < deadline)
    std::this_thread::yield();
  return ThreadCount() == count;
}

}  // namespace feedloom
