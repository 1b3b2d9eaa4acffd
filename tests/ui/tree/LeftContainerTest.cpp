#include <QAbstractButton>
#include <QAccessible>
#include <QSignalSpy>
#include <QTimer>

#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {
namespace {

using LeftContainerTest = LeftPaneFixture;
using Strings = std::vector<std::string>;

TEST_F(LeftContainerTest, OpensWithAllRowsAndNoneSelected) {
  Open();
  EXPECT_EQ(Labels(), (QStringList{"News(3)", "Daily(2)", "Weekly(1)", "Sports",
                                   CabinetTitle() + "(1)", "Keep(1)", "Later"}));
  EXPECT_FALSE(CabinetTitle().isEmpty());
  EXPECT_TRUE(frame.lists.empty());
  EXPECT_EQ(pane->SelectedChannel(), std::nullopt);
}

TEST_F(LeftContainerTest, LaysOutTheTreeInsideItsFrame) {
  Open();
  const int toolbarHeight = pane->findChild<QWidget*>("RSS_LeftToolBar")->height();
  EXPECT_EQ(pane->findChild<QWidget*>("RSS_LeftToolBar")->geometry(),
            QRect(0, 0, 251, toolbarHeight));
  EXPECT_EQ(Tree().geometry(), QRect(6, toolbarHeight + 1, 239, 400 - toolbarHeight - 7));
  const QImage picture = pane->grab().toImage();
  for (const QPoint corner : {QPoint(5, toolbarHeight), QPoint(245, 394)}) {
    EXPECT_EQ(picture.pixelColor(corner), QColor(0x76, 0x8A, 0x8E));
  }
  EXPECT_EQ(picture.pixelColor(200, 390), QColor(0xE4, 0xF3, 0xFF));
}

TEST_F(LeftContainerTest, MarksAreSeenLeftOfAChannelsIconAndInIt) {
  Open();
  const QRect row = Tree().visualRect(Row("Daily(2)"));
  const auto picture = [&](const QRect& area) { return Tree().viewport()->grab(area).toImage(); };
  const QRect gutter(14, row.top(), 13, row.height());
  const QRect icon(row.left(), row.top(), 13, row.height());

  const QImage withoutMark = picture(gutter);
  pane->SetChannelNew(daily, true);
  EXPECT_NE(picture(gutter), withoutMark);
  pane->SetChannelNew(daily, false);
  EXPECT_EQ(picture(gutter), withoutMark);

  const QImage sound = picture(icon);
  pane->SetChannelState(daily, -2);
  EXPECT_NE(picture(icon), sound);
  pane->SetChannelState(daily, 0);
  EXPECT_EQ(picture(icon), sound);
}

TEST_F(LeftContainerTest, CountsFollowWhatTheFrameTells) {
  Open();
  EXPECT_EQ(pane->SetChannelUnread(daily, 5), 3);
  pane->PostWasRead(weekly, false);
  pane->PostWasRead(keep, true);
  EXPECT_EQ(Labels(), (QStringList{"News(5)", "Daily(5)", "Weekly", "Sports", CabinetTitle(),
                                   "Keep", "Later"}));
  EXPECT_EQ(pane->ChannelTitle(daily), "Daily");
}

TEST_F(LeftContainerTest, UnknownIdsAreHarmless) {
  Open();
  const QStringList before = Labels();
  EXPECT_EQ(pane->SetChannelUnread(999, 5), 0);
  pane->SetChannelNew(999, true);
  pane->SetChannelState(999, -2);
  pane->PostWasRead(999, false);
  pane->PostWasRead(999, true);
  pane->AddStoredChannel(999);
  pane->ReloadSelection();
  EXPECT_EQ(pane->ChannelTitle(999), "");
  EXPECT_EQ(Labels(), before);
  EXPECT_TRUE(frame.relists.empty());
}

TEST_F(LeftContainerTest, AChannelFromARefreshGetsARowWhosePostsAreStillToBeCounted) {
  Open();
  const QPersistentModelIndex sports = Row("Sports");
  const int folder =
      std::stoi(frame.db.Value("select folder_id from TB_FOLDER where "
                               "folder_name = 'Sports'"));
  const int ball = frame.db.AddChannelWithPosts(folder, "Ball", 4);
  pane->AddStoredChannel(ball);
  pane->AddStoredChannel(ball);
  EXPECT_EQ(Tree().model()->rowCount(sports), 1);
  EXPECT_EQ(pane->SetChannelUnread(ball, 4), 4);
  EXPECT_TRUE(Labels().contains("Sports(4)"));
  EXPECT_TRUE(Labels().contains("Ball(4)"));
}

TEST_F(LeftContainerTest, ReloadingHandsOverWhatTheSelectionHoldsNow) {
  Open();
  Click("Weekly(1)");
  frame.db.Sql("insert into TB_POST(post_channelID, post_title, post_link, post_pubDate) values(" +
               std::to_string(weekly) + ", 'Fresh', 'l9', '2009-01-01 00:00:00')");
  pane->ReloadSelection();
  ASSERT_EQ(frame.relists.size(), 1U);
  EXPECT_EQ(frame.relists[0].posts.front().title, "Fresh");
  EXPECT_EQ(frame.relists[0].posts.front().ownerId, weekly);
  EXPECT_EQ(frame.lists.size(), 1U);
}

TEST_F(LeftContainerTest, WhenTheStoreFailsTheListIsEmptyButAReloadLeavesItAlone) {
  Open();
  Click("Daily(2)");
  frame.db.Sql("alter table TB_POST rename to TB_GONE");
  pane->ReloadSelection();
  EXPECT_TRUE(frame.relists.empty());
  Click("Weekly(1)");
  EXPECT_EQ(frame.lists.size(), 2U);
  EXPECT_TRUE(frame.lists.back().posts.empty());
  EXPECT_EQ(frame.db.Reports().size(), 2U);
}

TEST_F(LeftContainerTest, TheUpdateButtonQueuesEachChannelOnce) {
  Open();
  auto* const button = pane->findChild<QAbstractButton*>();
  EXPECT_FALSE(button->accessibleName().isEmpty());
  EXPECT_EQ(button->toolTip(), button->accessibleName());
  QTest::mouseClick(button, Qt::LeftButton);
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(frame.refreshes, 2);
  EXPECT_EQ(frame.queue.Claim()->channelId, daily);
  EXPECT_EQ(frame.queue.Claim()->channelId, weekly);
  EXPECT_FALSE(frame.queue.HasWaiting());
  EXPECT_TRUE(Tree().hasFocus());
}

TEST_F(LeftContainerTest, TheUpdateTimerFollowsTheLiveSettingsAndFiresOnce) {
  Open();
  auto* const timer = pane->findChild<QTimer*>({}, Qt::FindDirectChildrenOnly);
  EXPECT_EQ(timer->interval(), 900000);
  EXPECT_TRUE(timer->isActive());
  frame.state.liveSettings.newFeedDuration = 2;
  pane->RestartUpdateTimer();
  EXPECT_EQ(timer->interval(), 3600000);
  frame.state.liveSettings.newFeedMode = 1;
  pane->RestartUpdateTimer();
  EXPECT_FALSE(timer->isActive());

  timer->start(0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return frame.refreshes == 1; }));
  EXPECT_TRUE(frame.queue.Contains(weekly));
  EXPECT_FALSE(timer->isActive());
}

TEST_F(LeftContainerTest, AScreenReaderReadsTheLabels) {
  Open();
  const QAccessibleInterface* const tree = QAccessible::queryAccessibleInterface(&Tree());
  ASSERT_NE(tree, nullptr);
  EXPECT_EQ(tree->role(), QAccessible::Tree);
  QStringList names;
  for (int i = 0; i < tree->childCount(); ++i) names << tree->child(i)->text(QAccessible::Name);
  EXPECT_TRUE(names.contains("News(3)"));
  EXPECT_TRUE(names.contains("Daily(2)"));
}

}  // namespace
}  // namespace feedloom
