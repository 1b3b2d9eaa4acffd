// When the tree's pane refreshes by itself, and when its notice of new posts is due.

#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {

struct Timers : LeftPaneFixture {
  Timers() { Open(); }
};

TEST_F(Timers, FollowTheLiveSettings) {
  int notices = 0;
  QObject::connect(pane.get(), &CRSS_LeftContainer::NoticeIsDue, [&] { ++notices; });
  const auto timers = pane->findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
  const int cases[][5] = {{0, 0, 0, 15, 15}, {0, 1, 1, 30, 30}, {0, 2, 2, 60, 60},
                          {0, 3, 3, 120, 0}, {0, 4, -1, 0, 0},  {1, 0, 1, 0, 30}};
  for (const auto& row : cases) {  // mode, choices, and the minutes of both timers
    frame.state.liveSettings = {row[0], row[1], row[2]};
    pane->RestartUpdateTimer();
    pane->RestartNotificationTimer();
    for (int i = 0; i < 2; ++i)
      EXPECT_EQ(timers[i]->isActive() ? timers[i]->interval() / 60'000 : 0, row[3 + i]) << row[2];
  }
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  frame.visits[daily] = {.succeeded = now, .period = std::chrono::hours(1)};
  for (QTimer* const timer : timers) timer->start(0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return frame.refreshes == 1 && notices > 1; }));
  EXPECT_TRUE(frame.queue.Contains(daily)) << "not due, but the host has not asked for that";
  frame.state.liveSettings = {};
  frame.skin.SetHostValue(kValueUpdates, kUpdatesByHost);
  pane->RestartUpdateTimer();
  EXPECT_FALSE(timers[0]->isActive());
}

}  // namespace feedloom
