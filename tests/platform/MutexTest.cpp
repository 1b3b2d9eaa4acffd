#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <thread>

#include "platform/Mutex.h"

namespace feedloom {
namespace {

// Without fairness the thread that unlocks and locks again at once wins nearly every time.
TEST(Mutex, AThreadThatLocksAgainAndAgainLetsOthersHaveTheirTurn) {
  Mutex mutex;
  std::atomic<bool> stop = false;
  std::atomic<int> greedyTurns = 0;
  std::thread greedy([&] {
    while (!stop) {
      const MutexLock lock(mutex);
      ++greedyTurns;
      const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(1);
      while (std::chrono::steady_clock::now() < until) continue;
    }
  });
  while (greedyTurns == 0) std::this_thread::yield();
  constexpr int kTurns = 50;
  int turnsWaited = 0;
  for (int i = 0; i < kTurns; ++i) {
    const int before = greedyTurns;
    const MutexLock lock(mutex);
    turnsWaited += greedyTurns - before;
  }
  stop = true;
  greedy.join();
  EXPECT_LE(turnsWaited, 4 * kTurns);  // 1 each, more when this thread is not on a processor
}

TEST(Mutex, LetsOneThreadInAtATime) {
  Mutex mutex;
  int count = 0;
  std::latch start(2);
  const auto work = [&] {
    start.arrive_and_wait();
    for (int i = 0; i < 20'000; ++i) {
      const MutexLock lock(mutex);
      ++count;
    }
  };
  std::thread first(work);
  std::thread second(work);
  first.join();
  second.join();
  EXPECT_EQ(count, 40'000);
}

}  // namespace
}  // namespace feedloom
