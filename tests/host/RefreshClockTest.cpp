#include <gtest/gtest.h>

#include "host/RefreshClock.h"
#include "kit/ManualClock.h"
#include "kit/TestProfile.h"

namespace feedloom {
namespace {

using std::chrono::hours;
using std::chrono::minutes;

struct RefreshClockTest : testing::Test {
  // What the user has chosen in the settings.
  void Choose(int mode, int interval) {
    for (const auto& [name, value] :
         {std::pair("NewFeedModeStr", mode), {"NewFeedDurationStr", interval}})
      EXPECT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, name, std::to_string(value)));
  }
  void Start() {
    refresh_ = std::make_unique<RefreshClock>(
        profile_.TheRegistry(), clock_, [this] { return isOnline_; }, [this] { ++refreshes_; });
  }
  // How many refreshes the looks after a time bring.
  int After(minutes time) {
    clock_.Set(clock_.Now() + time);
    refreshes_ = 0;
    for (int look = 0; look < 3; ++look) refresh_->Look();
    return refreshes_;
  }

  TestProfile profile_;
  ManualClock clock_{NoonOf(2026, 5, 1)};
  bool isOnline_ = true;
  int refreshes_ = 0;
  std::unique_ptr<RefreshClock> refresh_;
};

TEST_F(RefreshClockTest, RefreshesOnceInEachPeriodThatTheUserHasChosenAndNeverWhenHeAsksHimself) {
  Start();
  EXPECT_EQ(After(minutes(14)), 0);
  EXPECT_EQ(After(minutes(1)), 1);
  EXPECT_EQ(After(minutes(15)), 1);
  EXPECT_EQ(After(hours(9)), 1) << "of sleep";
  Choose(0, 3);
  EXPECT_EQ(After(minutes(119)), 0);
  EXPECT_EQ(After(minutes(1)), 1);
  Choose(1, 0);
  EXPECT_EQ(After(hours(99)), 0);
  Choose(0, 4);
  EXPECT_EQ(After(hours(99)), 0);
}

TEST_F(RefreshClockTest, ThePeriodGoesOnWithoutNetworkAtAnotherStartAndByAClockThatWasSetBack) {
  Start();
  isOnline_ = false;
  EXPECT_EQ(After(minutes(20)), 0);
  isOnline_ = true;
  EXPECT_EQ(After(minutes(1)), 1);
  EXPECT_EQ(After(minutes(10)), 0);
  Start();
  EXPECT_EQ(After(minutes(5)), 1);
  EXPECT_EQ(After(-hours(99)), 0);
  EXPECT_EQ(After(minutes(15)), 1);
}

}  // namespace
}  // namespace feedloom
