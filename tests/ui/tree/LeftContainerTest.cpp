#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Folders.h"
#include "ui/FakeFrame.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"
#include "ui/tree/CRSS_LeftContainer.h"
#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

// The pane over a real database: News holds Daily (2 posts) and Weekly (1), Sports holds nothing,
// and of the two cabinets Keep holds a saved post.
class LeftContainerTest : public testing::Test {
 protected:
  LeftContainerTest() {
    Store& store = frame.TheStore();
    news = AddFolder(store, "News", 1);
    AddFolder(store, "Sports", 2);
    daily = frame.db.AddChannelWithPosts(news, "Daily", 2);
    weekly = frame.db.AddChannelWithPosts(news, "Weekly", 1);
    keep = AddCabinet(store, "Keep", 1);
    AddCabinet(store, "Later", 2);
    InsertScrapPost(store, keep, "Saved", "http://site.example/s", "2008-05-01 10:00:00", "text");
  }

  void Open() {
    pane = std::make_unique<CRSS_LeftContainer>(frame, nullptr);
    pane->LoadTree();
    pane->resize(251, 400);
    pane->show();
    pane->activateWindow();
    pane->setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Tree().hasFocus(); }));
  }

  CRSS_GroupTreeCtrl& Tree() const { return *pane->findChild<CRSS_GroupTreeCtrl*>(); }

  // The row with this label, which is on the screen.
  QModelIndex Row(const QString& label) const {
    for (QModelIndex row = Tree().model()->index(0, 0); row.isValid();
         row = Tree().indexBelow(row)) {
      if (row.data().toString() == label) return row;
    }
    ADD_FAILURE() << "no row " << label.toStdString();
    return {};
  }

  QStringList Labels() const {
    QStringList labels;
    for (QModelIndex row = Tree().model()->index(0, 0); row.isValid();
         row = Tree().indexBelow(row)) {
      labels << row.data().toString();
    }
    return labels;
  }

  void Click(const QString& label, Qt::MouseButton button = Qt::LeftButton,
             Qt::KeyboardModifiers modifiers = {}) {
    const QPoint place = Tree().visualRect(Row(label)).center();
    QTest::mouseClick(Tree().viewport(), button, modifiers, place);
  }

  void MovePointer(QPoint place, Qt::MouseButtons buttons) {
    const QPointF global = Tree().viewport()->mapToGlobal(QPointF(place));
    QMouseEvent event(QEvent::MouseMove, place, global, Qt::NoButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(Tree().viewport(), &event);
  }

  void Press(Qt::Key key) { QTest::keyClick(&Tree(), key); }

  QString SelectedLabel() const { return Tree().SelectedRow().data().toString(); }

  QString CabinetTitle() const {
    return ToQString(CodePage::Korean(),
                     frame.skin.Get().GetText(kSectionTexts, kTextCabinetTitle));
  }

  std::vector<std::string> ListedTitles() const {
    std::vector<std::string> titles;
    for (const PostRow& post : frame.lists.back().posts) titles.push_back(post.title);
    return titles;
  }

  FakeFrame frame;
  int news = 0;
  int daily = 0;
  int weekly = 0;
  int keep = 0;
  std::unique_ptr<CRSS_LeftContainer> pane;
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

TEST_F(LeftContainerTest, AClickListsTheChannelsPosts) {
  Open();
  Click("Daily(2)");
  ASSERT_EQ(frame.lists.size(), 1U);
  EXPECT_EQ(ListedTitles(), (Strings{"Post 2", "Post 1"}));
  for (const PostRow& post : frame.lists[0].posts) {
    EXPECT_EQ(post.ownerId, daily);
    EXPECT_EQ(post.ownerTitle, "Daily");
  }
  EXPECT_FALSE(frame.lists[0].areScrapPosts);
  EXPECT_EQ(frame.state.listMode, ListMode::Selection);
  EXPECT_EQ(pane->SelectedChannel(), daily);
}

TEST_F(LeftContainerTest, AClickOnAFolderListsThePostsOfItsChannels) {
  Open();
  Click("News(3)");
  ASSERT_EQ(frame.lists.size(), 1U);
  EXPECT_EQ(frame.lists[0].posts.size(), 3U);
  EXPECT_EQ(frame.lists[0].posts.front().ownerId, daily);
  EXPECT_EQ(frame.lists[0].posts.back().ownerId, weekly);
  EXPECT_EQ(pane->SelectedChannel(), std::nullopt);
}

TEST_F(LeftContainerTest, CabinetsListSavedPosts) {
  Open();
  for (const QString& label : {QString("Keep(1)"), CabinetTitle() + "(1)"}) {
    Click(label);
    EXPECT_EQ(ListedTitles(), Strings{"Saved"});
    EXPECT_TRUE(frame.lists.back().areScrapPosts);
    EXPECT_EQ(frame.lists.back().posts[0].ownerId, keep);
    EXPECT_EQ(frame.lists.back().posts[0].ownerTitle, "Keep");
    EXPECT_EQ(pane->SelectedChannel(), std::nullopt);
  }
  Click("Later");
  EXPECT_TRUE(frame.lists.back().posts.empty());
  EXPECT_EQ(frame.lists.size(), 3U);
}

TEST_F(LeftContainerTest, AnotherClickOnTheSelectedRowListsAgain) {
  Open();
  Click("Daily(2)");
  Click("Daily(2)");
  EXPECT_EQ(frame.lists.size(), 2U);
  Click("Daily(2)", Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(frame.lists.size(), 3U);
  EXPECT_EQ(SelectedLabel(), "Daily(2)");
}

TEST_F(LeftContainerTest, ADoubleClickListsOnce) {
  Open();
  const QPoint place = Tree().visualRect(Row("News(3)")).center();
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(frame.lists.size(), 1U);
  EXPECT_FALSE(Tree().isExpanded(Row("News(3)")));
}

TEST_F(LeftContainerTest, TheRightButtonSelectsAnotherRowAndLeavesTheSelectedOne) {
  Open();
  Click("Weekly(1)", Qt::RightButton);
  EXPECT_EQ(pane->SelectedChannel(), weekly);
  EXPECT_EQ(frame.lists.size(), 1U);
  Click("Weekly(1)", Qt::RightButton);
  EXPECT_EQ(frame.lists.size(), 1U);
}

TEST_F(LeftContainerTest, TheExpandMarkOnlyTogglesItsFolder) {
  Open();
  const QRect header = Tree().visualRect(Row("News(3)"));
  const QPoint mark(header.left() / 2, header.center().y());
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, mark);
  EXPECT_FALSE(Labels().contains("Daily(2)"));
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, mark);
  EXPECT_TRUE(Labels().contains("Daily(2)"));
  EXPECT_TRUE(frame.lists.empty());
}

TEST_F(LeftContainerTest, AClickBesideTheRowsSelectsNothing) {
  Open();
  QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, QPoint(100, 330));
  EXPECT_TRUE(frame.lists.empty());
  EXPECT_FALSE(Tree().SelectedRow().isValid());
}

TEST_F(LeftContainerTest, ADragKeepsTheRowOnWhichItBegan) {
  Open();
  const QPoint from = Tree().visualRect(Row("News(3)")).center();
  const QPoint to = Tree().visualRect(Row("Weekly(1)")).center();
  QTest::mousePress(Tree().viewport(), Qt::LeftButton, {}, from);
  MovePointer(to, Qt::LeftButton);
  QTest::mouseRelease(Tree().viewport(), Qt::LeftButton, {}, to);
  EXPECT_EQ(SelectedLabel(), "News(3)");
  EXPECT_EQ(Tree().currentIndex(), Tree().SelectedRow());
  EXPECT_EQ(frame.lists.size(), 1U);
}

TEST_F(LeftContainerTest, ThePointerIsAHandOverRowsOnly) {
  Open();
  MovePointer(Tree().visualRect(Row("Daily(2)")).center(), Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::BitmapCursor);
  MovePointer(QPoint(100, 330), Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(LeftContainerTest, ABusyPaneLeavesTheCursorToItsFrame) {
  Open();
  pane->setCursor(Qt::WaitCursor);
  const QPoint overRow = Tree().visualRect(Row("Daily(2)")).center();
  MovePointer(overRow, Qt::NoButton);
  pane->SetBusy(true);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::WaitCursor);
  MovePointer(overRow, Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::WaitCursor);
  pane->SetBusy(false);
  MovePointer(overRow, Qt::NoButton);
  EXPECT_EQ(Tree().viewport()->cursor().shape(), Qt::BitmapCursor);
}

TEST_F(LeftContainerTest, KeysSelectAndListOnceEach) {
  Open();
  std::size_t lists = 0;
  const auto selects = [&](Qt::Key key, const QString& label) {
    Press(key);
    EXPECT_EQ(SelectedLabel(), label);
    EXPECT_EQ(frame.lists.size(), ++lists) << label.toStdString();
  };
  selects(Qt::Key_Home, "News(3)");
  selects(Qt::Key_Down, "Daily(2)");
  selects(Qt::Key_Down, "Weekly(1)");
  selects(Qt::Key_End, "Later");
  selects(Qt::Key_Up, "Keep(1)");
  selects(Qt::Key_Left, CabinetTitle() + "(1)");
  selects(Qt::Key_Home, "News(3)");
  Press(Qt::Key_Home);
  EXPECT_EQ(frame.lists.size(), lists);
}

TEST_F(LeftContainerTest, TheFirstDownOrEndStartsAtTheRightRow) {
  Open();
  Press(Qt::Key_Down);
  EXPECT_EQ(SelectedLabel(), "News(3)");
  pane->LoadTree();
  Press(Qt::Key_End);
  EXPECT_EQ(SelectedLabel(), "Later");
}

TEST_F(LeftContainerTest, SelectingAChannelTurnsItsNewMarkOff) {
  Open();
  const auto isNew = [&](const QString& label) {
    return Row(label).data(GroupTreeModel::IsNewRole).toBool();
  };
  pane->SetChannelNew(daily, true);
  pane->SetChannelNew(weekly, true);
  EXPECT_TRUE(isNew("Daily(2)"));
  Click("News(3)");
  EXPECT_TRUE(isNew("Daily(2)"));
  Click("Daily(2)");
  EXPECT_FALSE(isNew("Daily(2)"));
  EXPECT_TRUE(isNew("Weekly(1)"));
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
