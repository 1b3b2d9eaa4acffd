#pragma once

#include <filesystem>

namespace feedloom {

// The number of this process's threads.
inline std::ptrdiff_t ThreadCount() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
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
