#pragma once

#include <chrono>
#include <filesystem>
#include <iterator>
#include <thread>

namespace feedloom {

// The number of this process's threads.
inline std::ptrdiff_t ThreadCount() {
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return std::distance(begin(tasks), end(tasks));
}

// A joined thread leaves the system's list a moment after the join returns.
inline bool ThreadCountComesTo(std::ptrdiff_t count) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (ThreadCount() != count && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::yield();
  }
  return ThreadCount() == count;
}

}  // namespace feedloom
