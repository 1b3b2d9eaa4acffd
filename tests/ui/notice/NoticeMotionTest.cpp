#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "ui/notice/NoticeMotion.h"

namespace feedloom {
namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

// Timers on a clock that stands still until the next one fires.
class FakeTimers : public NoticeTimers {
 public:
  void Start(int id, milliseconds period) override {
    running_[id] = {period, now + period};
    started.insert(id);
  }
  void Stop(int id) override { running_.erase(id); }

  // Advances the clock to the timer that is due next, and starts its next period.
  int NextToFire() {
    const auto next =
        std::ranges::min_element(running_, {}, [](const auto& entry) { return entry.second.due; });
    now = next->second.due;
    next->second.due += next->second.period;
    return next->first;
  }

  std::set<int> Running() const {
    std::set<int> ids;
    for (const auto& entry : running_) ids.insert(entry.first);
    return ids;
  }

  milliseconds now{0};
  std::set<int> started;

 private:
  struct Timer {
    milliseconds period;
    milliseconds due;
  };

  std::map<int, Timer> running_;
};

using Ids = std::set<int>;

TEST(NoticeMotionTest, SlidesUpInTheScreensCornerWhileItsRightAndLowerEdgesStay) {
  FakeTimers timers;
  NoticeMotion motion(timers);
  motion.Begin(QRect(-1280, 200, 1280, 1024), 100);
  for (int tick = 0; tick < 20; ++tick) {
    EXPECT_EQ(motion.Place(), QRect(-201, 1171 - 5 * tick, 201, 5 * tick));
    EXPECT_TRUE(motion.IsVisible());
    EXPECT_FALSE(motion.IsShown());
    EXPECT_EQ(timers.Running(), Ids{0x500});
    motion.OnTimer(timers.NextToFire());
    EXPECT_EQ(timers.now, 20ms * (tick + 1));
  }
  EXPECT_EQ(motion.Place(), QRect(-201, 1073, 201, 98));
  EXPECT_TRUE(motion.IsShown());
  EXPECT_EQ(timers.Running(), Ids{3});
}

TEST(NoticeMotionTest, StaysFiveSecondsAndFadesOutFromItsAlphaValue) {
  const struct {
    int alphaValue, ticksToHide, ticksToClose;
  } cases[] = {{0, 25, 26}, {5, 25, 25}, {100, 15, 16}, {245, 1, 1}, {250, 1, 1}};
  for (const auto& [alphaValue, ticksToHide, ticksToClose] : cases) {
    SCOPED_TRACE(alphaValue);
    FakeTimers timers;
    NoticeMotion motion(timers);
    motion.Begin(QRect(0, 0, 1280, 1024), alphaValue);
    while (timers.Running() != Ids{2}) motion.OnTimer(timers.NextToFire());
    EXPECT_EQ(timers.now, 400ms + 5000ms);
    for (int tick = 0; tick <= ticksToClose; ++tick) {
      EXPECT_EQ(motion.FadeLevel(), alphaValue + 10 * tick);
      EXPECT_EQ(motion.IsVisible(), tick < ticksToHide);
      EXPECT_EQ(motion.IsClosed(), tick == ticksToClose);
      if (!motion.IsClosed()) motion.OnTimer(timers.NextToFire());
    }
    EXPECT_EQ(timers.now, 5400ms + 50ms * ticksToClose);
    EXPECT_EQ(timers.Running(), Ids{});
    EXPECT_EQ(timers.started, (Ids{2, 3, 0x500}));
  }
}

TEST(NoticeMotionTest, TimerOneFadesIn) {
  FakeTimers timers;
  NoticeMotion motion(timers);
  motion.Begin(QRect(0, 0, 1280, 1024), 25);
  for (const int level : {15, 5, 5}) {
    motion.OnTimer(1);
    EXPECT_EQ(motion.FadeLevel(), level);
  }
}

TEST(NoticeAlphaValueTest, IsTheSettingOnTheScaleUpTo250) {
  const std::pair<int, int> cases[] = {{0, 0},     {1, 2},  {40, 100},  {99, 247},
                                       {100, 250}, {-1, 0}, {101, 250}, {2'000'000'000, 250}};
  for (const auto& [setting, value] : cases) EXPECT_EQ(NoticeAlphaValue(setting), value) << setting;
}

TEST(NewPostCountTest, IsWhatCameSinceTheLastAnnouncementAndNeverNegative) {
  const struct {
    int total, announced, count;
  } cases[] = {{7, 4, 3}, {4, 4, 0}, {4, 7, 0}, {-1, 7, 0}, {-1, -1, 0}, {1, -1, 2}};
  for (const auto& [total, announced, count] : cases) {
    EXPECT_EQ(NewPostCount(total, announced), count) << total << " after " << announced;
  }
}

}  // namespace
}  // namespace feedloom
