#pragma once

#include <sys/resource.h>

#include <filesystem>

namespace feedloom {

// The number of this process's threads.
inline std::ptrdiff_t ThreadCount() {
  return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

// Of those, the number that give way to the interface.
inline std::ptrdiff_t ThreadsInTheBackground() {
  std::filesystem::directory_iterator tasks("/proc/self/task");
  return std::count_if(begin(tasks), end(tasks), [](const auto& task) {
    return getpriority(PRIO_PROCESS, std::stoi(task.path().filename().string())) >= 5;
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
