#include <QScrollBar>
#include <QTimer>

#include "ui/tree/CRSS_LeftToolBarWnd.h"
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {
namespace {

class LeftContainerTest : public LeftPaneFixture {
 protected:
  static PostRow PostOf(int ownerId) {
    PostRow post;
    post.ownerId = ownerId;
    return post;
  }
};

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
  pane->PostWasRead(PostOf(weekly), false);
  pane->PostWasRead(PostOf(keep), true);
  EXPECT_EQ(Labels(), (QStringList{"News(5)", "Daily(5)", "Weekly", "Sports", CabinetTitle(),
                                   "Keep", "Later"}));
  EXPECT_EQ(pane->ChannelTitle(daily), "Daily");
}

TEST_F(LeftContainerTest, APostWhoseOwnerIsNotKnownLowersTheRightRow) {
  Open();
  PostRow found = PostOf(0);
  found.id = std::stoi(frame.db.Value("select post_id from TB_POST where post_channelID = " +
                                      std::to_string(weekly)));
  pane->PostWasRead(found, false);
  frame.db.Sql("update TB_SCRAP_POST set scrap_post_readStatus = 1");
  pane->PostWasRead(PostOf(0), true);
  EXPECT_EQ(Labels(), (QStringList{"News(2)", "Daily(2)", "Weekly", "Sports", CabinetTitle(),
                                   "Keep", "Later"}));
}

TEST_F(LeftContainerTest, UnknownIdsAreHarmless) {
  Open();
  const QStringList before = Labels();
  EXPECT_EQ(pane->SetChannelUnread(999, 5), 0);
  pane->SetChannelNew(999, true);
  pane->SetChannelState(999, -2);
  pane->PostWasRead(PostOf(999), false);
  pane->PostWasRead(PostOf(999), true);
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

TEST_F(LeftContainerTest, WhatADialogHasStoredIsSeenAtOnceAndTheSelectionStays) {
  Open();
  Click("Daily(2)");
  pane->AppendFolder({.name = "New", .id = 70, .order = 3});
  pane->AppendChannel({.title = "First", .xmlLink = {}, .id = 71, .folderId = 70});
  pane->AppendCabinet({.id = 72, .title = "Box"});
  pane->MoveChannel(daily, 70);
  EXPECT_EQ(Labels(), (QStringList{"News(1)", "Weekly(1)", "Sports", "New(2)", "First", "Daily(2)",
                                   CabinetTitle() + "(1)", "Keep(1)", "Later", "Box"}));
  EXPECT_EQ(SelectedLabel(), "Daily(2)");
  Tree().grab();  // paints it so
}

TEST_F(LeftContainerTest, AChannelThatGoesWhereItCannotBeSeenIsShown) {
  Open();
  Click("Daily(2)");
  const int foreign = AddFolder(frame.GetStore(), "Foreign", 9);  // by another program
  pane->MoveChannel(daily, foreign);
  EXPECT_EQ(Labels().mid(0, 5),
            (QStringList{"News(1)", "Weekly(1)", "Sports", "Foreign(2)", "Daily(2)"}));
  Tree().collapse(Row("News(1)"));
  pane->MoveChannel(daily, news);
  EXPECT_EQ(Labels().mid(0, 3), (QStringList{"News(3)", "Daily(2)", "Weekly(1)"}));
  EXPECT_EQ(SelectedLabel(), "Daily(2)");
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
  auto* const button = Buttons()[CRSS_LeftToolBarWnd::kUpdate];
  QTest::mouseClick(button, Qt::LeftButton);
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(frame.refreshes, 2);
  EXPECT_EQ(frame.queue.Claim()->channelId, daily);
  EXPECT_EQ(frame.queue.Claim()->channelId, weekly);
  EXPECT_FALSE(frame.queue.HasWaiting());
  EXPECT_TRUE(Tree().hasFocus());
}

TEST_F(LeftContainerTest, ButtonsStandSideBySideAndHaveNames) {
  Open();
  const auto buttons = Buttons();
  ASSERT_EQ(buttons.size(), CRSS_LeftToolBarWnd::kButtonCount);
  for (int i = 0; i < buttons.size(); ++i) {
    EXPECT_EQ(buttons[i]->toolTip(), buttons[i]->accessibleName());
    EXPECT_TRUE(pane->rect().contains(buttons[i]->geometry()));
    EXPECT_GT(buttons[i]->x(), i == 0 ? 0 : buttons[i - 1]->geometry().right());
  }
}

TEST_F(LeftContainerTest, AButtonWhoseActionIsMissingIsGrey) {
  std::vector<std::string> asked;
  frame.actions.addChannel = [&](const std::string& folder, const std::string&) {
    asked.push_back(folder);
  };
  Open();
  EXPECT_FALSE(Buttons()[CRSS_LeftToolBarWnd::kDirectory]->isEnabled());
  Click("Weekly(1)");
  QTest::mouseClick(Buttons()[CRSS_LeftToolBarWnd::kAddChannel], Qt::LeftButton);
  Click(CabinetTitle() + "(1)");
  QTest::mouseClick(Buttons()[CRSS_LeftToolBarWnd::kAddChannel], Qt::LeftButton);
  EXPECT_EQ(asked, (Strings{"News", ""}));
}

TEST_F(LeftContainerTest, AFeedOfThePageIsAddedToTheSelectionsFolder) {
  Open();
  pane->AddChannel("http://feed.example/");  // nothing without the action
  std::vector<std::string> asked;
  frame.actions.addChannel = [&](const std::string& folder, const std::string& address) {
    asked.push_back(folder + " " + address);
  };
  Click("Weekly(1)");
  pane->AddChannel("http://feed.example/");
  EXPECT_EQ(asked, Strings{"News http://feed.example/"});
  frame.actions.addChannel = [&](const std::string&, const std::string&) { pane.reset(); };
  pane->AddChannel("");  // the pane may go while the dialog is open
}

TEST_F(LeftContainerTest, APostThatIsSavedCountsAtOnce) {
  Open();
  pane->PostIsSaved(keep);
  EXPECT_EQ(Row(CabinetTitle() + "(2)").row(), 2);
  EXPECT_TRUE(Labels().contains("Keep(2)"));
  pane->PostIsSaved(999);  // a cabinet that another program has added
  EXPECT_TRUE(Labels().contains(CabinetTitle() + "(3)"));
}

TEST_F(LeftContainerTest, TheMenuButtonOpensTheWholeMenu) {
  Open();
  QTest::mouseClick(Buttons()[CRSS_LeftToolBarWnd::kMenu], Qt::LeftButton);
  ASSERT_NE(OpenMenu(), nullptr);
  EXPECT_EQ(OpenMenu()->pos(), pane->mapToGlobal(QPoint(7, 54)));
  CloseMenu();
}

TEST_F(LeftContainerTest, TheTimersFollowTheLiveSettings) {
  int notices = 0;
  frame.actions.notifyOfNewPosts = [&] { ++notices; };
  Open();
  const auto timers = pane->findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
  ASSERT_EQ(timers.size(), 2);
  EXPECT_EQ(timers[0]->interval(), 900000);
  EXPECT_EQ(timers[1]->interval(), 900000);
  frame.state.liveSettings = {.newFeedMode = 1, .newFeedMsgDuration = 2};
  pane->RestartUpdateTimer();
  pane->RestartNotificationTimer();
  EXPECT_FALSE(timers[0]->isActive());
  EXPECT_EQ(timers[1]->interval(), 3600000);

  timers[0]->start(0);
  timers[1]->start(0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return frame.refreshes == 1 && notices > 1; }));
  EXPECT_TRUE(frame.queue.Contains(weekly));
  EXPECT_FALSE(timers[0]->isActive());
}

TEST_F(LeftContainerTest, AScrollBarComesWhenTheRowsAndFivePixelsDoNotFit) {
  Open();
  const int rows = 3 * 24 + 4 * 20;
  const int around = pane->height() - Tree().height();
  QScrollBar& bar = *Tree().verticalScrollBar();
  pane->resize(251, rows + 5 + around);
  EXPECT_FALSE(bar.isVisible());
  pane->resize(251, rows + 4 + around);
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.maximum(), 1);
  pane->resize(251, 100 + around);
  EXPECT_EQ(bar.maximum(), rows + 5 - 100);
  EXPECT_EQ(bar.pageStep(), 100);
  Tree().collapse(Row("News(3)"));
  EXPECT_EQ(bar.maximum(), rows - 2 * 20 + 5 - 100);
}

TEST_F(LeftContainerTest, TheNewMarkMovesAsLongAsItIsSeen) {
  Open();
  const auto picture = [&](const QString& label) {
    const QRect row = Tree().visualRect(Row(label));
    return Tree().viewport()->grab(QRect(14, row.top(), 13, row.height())).toImage();
  };
  const auto moves = [&](const QString& label) {
    const QImage first = picture(label);
    return QTest::qWaitFor([&] { return picture(label) != first; });
  };
  pane->SetChannelNewByMessage(daily, true);
  EXPECT_TRUE(moves("Daily(2)"));
  pane->SetChannelNewByMessage(daily, false);
  pane->SetChannelNew(weekly, true);
  EXPECT_TRUE(moves("Weekly(1)"));
}

}  // namespace
}  // namespace feedloom
