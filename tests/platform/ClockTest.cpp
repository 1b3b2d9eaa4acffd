#include <gtest/gtest.h>

#include <thread>

#include "kit/TempFolder.h"
#include "platform/Clock.h"
#include "platform/TempFile.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

TEST(ClockTest, PauseTakesItsTime) {
  const auto start = steady_clock::now();
  SystemClock().Pause(20ms);
  SystemClock().Pause(20ms, std::stop_source().get_token());
  EXPECT_GE(steady_clock::now() - start, 40ms);
}

TEST(ClockTest, PauseEndsAtAStopRequest) {
  const auto start = steady_clock::now();
  std::jthread sleeper([](std::stop_token stop) {
    SystemClock().Pause(1h, stop);
    SystemClock().Pause(1h, stop);  // a stop that came before
  });
  sleeper.request_stop();
  sleeper.join();
  EXPECT_LT(steady_clock::now() - start, 20s);
}

TEST(ClockTest, LocalTimeIsFormattedInTheMachinesZone) {
  const auto time = std::chrono::sys_days{std::chrono::year(2003) / 6 / 10} + 4h;
  const std::tm local = LocalTime(time);
  EXPECT_EQ(local.tm_year, 103);
  EXPECT_EQ(FormatLocalTime(time, "%H:%M").substr(0, 2),
            (local.tm_hour < 10 ? "0" : "") + std::to_string(local.tm_hour));
}

TEST(TempFileTest, RemovesWhatStandsAtItsPath) {
  const TempFolder folder;
  {
    const TempFile file(folder.Write("feed.xml", "x"));
    const TempFile neverWritten(folder.File("other.xml"));
    EXPECT_EQ(folder.Names().size(), 1u);
  }
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace feedloom
