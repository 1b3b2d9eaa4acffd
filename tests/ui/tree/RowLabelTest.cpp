#include <gtest/gtest.h>

#include <chrono>

#include "ui/Settings.h"
#include "ui/tree/RowLabel.h"
#include "ui/tree/TimerPeriods.h"

namespace feedloom {
namespace {

TEST(RowLabel, HasItsCountRightBehindTheNameAndNoneForZero) {
  EXPECT_EQ(AppendCount("Economy", 12), "Economy(12)");
  EXPECT_EQ(AppendCount("Economy", 0), "Economy");
  EXPECT_EQ(AppendCount("Economy", -1), "Economy");
  EXPECT_EQ(AppendCount("News(2)", 3), "News(2)(3)");
}

TEST(UpdatePeriod, IsOneOfFourWhileAutomaticUpdateIsOn) {
  using std::chrono::milliseconds;
  const auto period = [](int mode, int index) {
    return UpdatePeriod({.newFeedMode = mode, .newFeedDuration = index});
  };
  EXPECT_EQ(period(0, 0), milliseconds(900000));
  EXPECT_EQ(period(0, 1), milliseconds(1800000));
  EXPECT_EQ(period(0, 2), milliseconds(3600000));
  EXPECT_EQ(period(0, 3), milliseconds(7200000));
  for (const int index : {4, -1, 1000000}) EXPECT_EQ(period(0, index), std::nullopt);
  EXPECT_EQ(period(1, 0), std::nullopt);
}

TEST(NotificationPeriod, IsOneOfThreeWhateverTheUpdateMode) {
  using std::chrono::milliseconds;
  const auto period = [](int index) {
    return NotificationPeriod({.newFeedMode = 1, .newFeedMsgDuration = index});
  };
  EXPECT_EQ(period(0), milliseconds(900000));
  EXPECT_EQ(period(1), milliseconds(1800000));
  EXPECT_EQ(period(2), milliseconds(3600000));
  for (const int index : {3, -1}) EXPECT_EQ(period(index), std::nullopt);
}

}  // namespace
}  // namespace feedloom
