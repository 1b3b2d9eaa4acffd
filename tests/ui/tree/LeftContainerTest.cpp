// The rows, their counts and marks, what clicks and keys select, the buttons and the timers.
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextDocumentFragment>
#include <QTimer>

#include "platform/Messages.h"
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {
namespace {

constexpr QPoint kBelowRows(100, 330);

class LeftContainerTest : public LeftPaneFixture {
 protected:
  LeftContainerTest() { Open(); }
  void ReadPost(int ownerId, bool isScrapPost, int id = 0) {
    PostRow post;
    post.id = id;
    post.ownerId = ownerId;
    pane->PostWasRead(post, isScrapPost);
  }
  static ChannelRow Channel(int id, int folderId, const std::string& title, int unread = 0,
                            int order = 0) {
    return {title, "", id, folderId, order, unread};
  }
  // The selected row, and how often posts were listed so far.
  std::string Selection() const {
    return tree->SelectedRow().data().toString().toStdString() + " " +
           std::to_string(frame.lists.size());
  }
  std::string AfterClick(const QPoint& place, Qt::MouseButton button = Qt::LeftButton,
                         bool ctrl = false) {
    return Click(place, button, ctrl), Selection();
  }
  Qt::CursorShape CursorAt(const QPoint& place, Qt::MouseButtons held = {}) {
    QMouseEvent event(QEvent::MouseMove, place, tree->viewport()->mapToGlobal(QPointF(place)),
                      Qt::NoButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(tree->viewport(), &event);
    return tree->viewport()->cursor().shape();
  }
  // The square of a row that begins so far from its left edge.
  QImage Picture(const QString& label, int left) {
    const QRect row = tree->visualRect(Row(label));
    return tree->viewport()->grab(QRect(left, row.top(), 13, row.height())).toImage();
  }
};

TEST_F(LeftContainerTest, OpensWithAllRowsAndNoneSelectedInsideItsFrame) {
  EXPECT_EQ(Rows(), "News(3) Daily(2) Weekly(1) Sports 보관함(1) Keep(1) Later");
  EXPECT_EQ(Selection(), " 0");
  EXPECT_EQ(pane->findChild<QWidget*>("RSS_LeftToolBar")->geometry(), QRect(0, 0, 251, 40));
  EXPECT_EQ(tree->geometry(), QRect(6, 41, 239, 353));
  EXPECT_EQ(tree->visualRect(Row("Daily")).topLeft(), QPoint(28, 24));
  EXPECT_EQ(tree->accessibleName(), "채널과 보관함");
  EXPECT_EQ(pane->Subscriptions().size(), 2U) << "the cabinets are none";
  const QImage picture = pane->grab().toImage();
  EXPECT_EQ(picture.pixelColor(5, 40), QColor(0x76, 0x8A, 0x8E));
  EXPECT_EQ(picture.pixelColor(245, 394), QColor(0x76, 0x8A, 0x8E));
  EXPECT_EQ(picture.pixelColor(200, 390), QColor(0xE4, 0xF3, 0xFF));
  const auto header = [&](const char* label) {
    return picture.pixelColor(tree->mapTo(pane.get(), QPoint(220, PlaceOf(label).y())));
  };
  EXPECT_EQ(header("News"), QColor(0xCB, 0xE4, 0xF7));
  EXPECT_EQ(header("보관함"), QColor(0xF2, 0xE8, 0xD0));
}

TEST_F(LeftContainerTest, TheSelectedRowsPostsAreListed) {
  pane->ReloadSelection();
  const std::pair<const char*, const char*> cases[] = {
      {"News", "Daily Post 2, Daily Post 1, Weekly Post 1, "},
      {"Sports", ""},
      {"Later", "+"},
      {"Keep", "+Keep Saved, "},
      {"보관함", "+Keep Saved, "},
      {"Daily", "Daily Post 2, Daily Post 1, "}};
  for (const auto& [label, posts] : cases) {
    Click(PlaceOf(label));
    EXPECT_EQ(Listed(), posts) << label;
    EXPECT_EQ(pane->SelectedChannel().value_or(0), label == QString("Daily") ? daily : 0);
  }
  frame.db.Sql("update TB_POST set post_title = 'Fresh'");
  pane->ReloadSelection();
  EXPECT_EQ(frame.relists.at(0).posts.at(1).title, "Fresh");
  frame.db.Sql("alter table TB_POST rename to TB_GONE");
  pane->ReloadSelection();
  EXPECT_EQ(frame.relists.size(), 1U) << "the list keeps what it has";
  Click(PlaceOf("Weekly"));
  EXPECT_EQ(Listed(), "");
}

TEST_F(LeftContainerTest, EachClickListsOnce) {
  const QPoint header = PlaceOf("News"), channel = PlaceOf("Daily"), cabinet = PlaceOf("Keep");
  EXPECT_EQ(AfterClick(kBelowRows), " 0");
  EXPECT_EQ(AfterClick({7, header.y()}), " 0") << "the expand mark";
  EXPECT_EQ(Rows(), "News(3) Sports 보관함(1) Keep(1) Later");
  EXPECT_EQ(AfterClick({7, header.y()}), " 0");
  EXPECT_EQ(AfterClick(channel), "Daily(2) 1");
  EXPECT_EQ(AfterClick(channel), "Daily(2) 2");
  EXPECT_EQ(AfterClick(channel, Qt::LeftButton, true), "Daily(2) 3");
  EXPECT_EQ(AfterClick(channel, Qt::RightButton), "Daily(2) 3");
  EXPECT_EQ(AfterClick(cabinet, Qt::RightButton), "Keep(1) 4");
  QTest::mousePress(tree->viewport(), Qt::LeftButton, {}, channel);
  CursorAt(cabinet, Qt::LeftButton);  // a drag
  QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, cabinet);
  EXPECT_EQ(Selection(), "Daily(2) 5");
  tree->collapse(Row("News"));
  EXPECT_EQ(Selection(), "News(3) 6") << "no command acts on a row out of sight";
  EXPECT_EQ(AfterClick(PlaceOf("Keep")), "Keep(1) 7");
  EXPECT_EQ(AfterClick(header), "News(3) 8");
  QTest::mouseDClick(tree->viewport(), Qt::LeftButton, {}, header);
  EXPECT_TRUE(tree->isExpanded(Row("News")));
  EXPECT_EQ(AfterClick(cabinet), "Keep(1) 9");
  tree->collapse(Row("News"));
  EXPECT_EQ(Selection(), "Keep(1) 9");
}

TEST_F(LeftContainerTest, EachKeySelectsAndListsOnce) {
  Press(Qt::Key_Return);
  Press(Qt::Key_Down);
  EXPECT_EQ(Selection(), "News(3) 1");
  pane->LoadTree();
  const std::pair<Qt::Key, const char*> cases[] = {
      {Qt::Key_End, "Later 2"},     {Qt::Key_Up, "Keep(1) 3"},   {Qt::Key_End, "Later 4"},
      {Qt::Key_Home, "News(3) 5"},  {Qt::Key_Home, "News(3) 5"}, {Qt::Key_Return, "News(3) 6"},
      {Qt::Key_Enter, "News(3) 7"}, {Qt::Key_N, "News(3) 7"},    {Qt::Key_P, "News(3) 7"}};
  for (const auto& [key, selection] : cases) {
    Press(key);
    EXPECT_EQ(Selection(), selection);  // no letter seeks a name
  }
  EXPECT_EQ(frame.unreadPostsAsked, (std::vector<bool>{true, false}));
  QTest::keyClick(tree, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(frame.searchFocuses, 1);
  pane->LoadTree();
  tree->collapse(Row("보관함"));
  Press(Qt::Key_End);
  EXPECT_EQ(Selection(), "보관함(1) 8");
}

TEST_F(LeftContainerTest, GoesToTheNextOrPreviousRowWithUnreadPosts) {
  pane->SetChannelUnread(weekly, 0);
  const char* const cases[][3] = {
      // from, next, previous
      {"", "Daily(2)", "Keep(1)"},         {"News", "Keep(1)", "News(2)"},
      {"Daily", "Keep(1)", "Daily(2)"},    {"Weekly", "Keep(1)", "Daily(2)"},
      {"보관함", "보관함(1)", "Daily(2)"}, {"Keep", "Keep(1)", "Daily(2)"},
      {"Later", "Later", "Keep(1)"}};
  for (const auto& [from, next, previous] : cases) {
    for (const bool forward : {true, false}) {
      *from ? tree->setCurrentIndex(Row(from)) : tree->ClearSelection();
      pane->GoToUnreadRow(forward);
      EXPECT_EQ(tree->SelectedRow().data(), forward ? next : previous) << from;
    }
  }
  using enum FirstShown;
  tree->ClearSelection();
  frame.firstShowns.clear();
  for (const bool forward : {true, true, false}) pane->GoToUnreadRow(forward);
  Click(PlaceOf("News"));
  EXPECT_EQ(frame.firstShowns, (std::vector{FirstUnread, FirstUnread, LastUnread, First}));
}

TEST_F(LeftContainerTest, ThePointerIsAHandOverRowsUnlessThePaneIsBusy) {
  pane->setCursor(Qt::WaitCursor);
  EXPECT_EQ(CursorAt(kBelowRows), Qt::WaitCursor);
  EXPECT_EQ(CursorAt(PlaceOf("Daily")), Qt::BitmapCursor);
  pane->SetBusy(true);
  EXPECT_EQ(tree->viewport()->cursor().shape(), Qt::WaitCursor);
  EXPECT_EQ(CursorAt(PlaceOf("Daily")), Qt::WaitCursor);
  pane->SetBusy(false);
  EXPECT_EQ(CursorAt(PlaceOf("Daily")), Qt::BitmapCursor);
}

TEST_F(LeftContainerTest, AGroupsCountFollowsItsRowsAndNoneGoesBelowZero) {
  const QSignalSpy repaints(tree->model(), &QAbstractItemModel::dataChanged);
  EXPECT_EQ(pane->SetChannelUnread(daily, 5), 3);
  for (const int count : {5, -1}) EXPECT_EQ(pane->SetChannelUnread(daily, count), 0);
  EXPECT_EQ(pane->SetChannelUnread(999, 7), 0);
  for (int i = 0; i < 2; ++i) pane->SetChannelNew(daily, true), pane->SetChannelState(daily, -2);
  EXPECT_EQ(repaints.size(), 4) << "each change once, a count also for the folder";
  for (int i = 0; i < 3; ++i) ReadPost(weekly, false);
  for (const int owner : {keep, 999}) ReadPost(owner, true);
  EXPECT_EQ(Rows(), "News(5) Daily(5) Weekly Sports 보관함 Keep Later");
  EXPECT_EQ(repaints.size(), 8);
  for (const int cabinet : {keep, 999}) pane->PostIsSaved(cabinet);  // one of another program
  const std::string post = frame.db.Value("select max(post_id) from TB_POST");
  pane->SetChannelUnread(weekly, 2);
  ReadPost(0, false, std::stoi(post));  // found by a search, owner unknown
  EXPECT_EQ(Rows(), "News(6) Daily(5) Weekly(1) Sports 보관함(2) Keep(1) Later");
  EXPECT_EQ(pane->ChannelUnread(daily) + pane->ChannelUnread(999), 5);
  frame.db.Sql("update TB_SCRAP_POST set scrap_post_readStatus = 1");
  ReadPost(0, true);
  pane->RecountUnread(false);
  EXPECT_EQ(Rows(), "News(3) Daily(2) Weekly(1) Sports 보관함 Keep Later");

  pane->ShowTree({{{"F", 1, 0, -1}, {"G", 2, 0, 1}},
                  {Channel(5, 1, "X", -1), Channel(6, 2, "Y", 3), Channel(7, 99, "Lost")},
                  {{6, "B", 0, -1}},
                  "",
                  -1});
  EXPECT_EQ(Rows(), "F X G(1) Y(3) 보관함 B");
  pane->SetChannelUnread(6, 0);  // more than its folder has
  for (const int channel : {5, 6}) pane->SetChannelUnread(channel, 2);
  pane->PostIsSaved(6);
  EXPECT_EQ(pane->SetChannelUnread(weekly, 9), 0) << "its row is gone";
  EXPECT_EQ(Rows(), "F(2) X(2) G(2) Y(2) 보관함(1) B(1)");
}

TEST_F(LeftContainerTest, RowsComeAndMoveWithTheirCountsAndTheSelectionStaysInSight) {
  const int ball = frame.db.AddChannelWithPosts(sports, "Ball", 4);
  for (const int channel : {ball, ball, 999}) pane->AddStoredChannel(channel);
  EXPECT_EQ(pane->SetChannelUnread(ball, 4), 4) << "a refresh counts its posts later";
  Click(PlaceOf("Daily"));
  for (int i = 0; i < 2; ++i) {  // each once
    pane->AppendFolder({"New", 70, 3});
    pane->AppendChannel(Channel(71, 70, "First", 1));
    pane->AppendCabinet({72, "Box"});
    pane->MoveChannel(daily, 70);
    pane->MoveChannel(999, 70);
    pane->SetChannelNew(999, true);
    pane->SetChannelState(999, -2);
    pane->AppendChannel(Channel(73, 999, "Nowhere"));
    pane->AppendChannel(Channel(74, 0, "Not in the cabinets"));
  }
  EXPECT_EQ(Rows(),
            "News(1) Weekly(1) Sports(4) Ball(4) New(3) First(1) [Daily(2)] 보관함(1) "
            "Keep(1) Later Box");
  const int foreign = AddFolder(store, "Foreign", 9);  // by another program
  frame.db.AddChannelWithPosts(foreign, "Unknown", 1);
  pane->MoveChannel(ball, foreign);
  tree->collapse(Row("News"));
  pane->MoveChannel(daily, news);
  EXPECT_EQ(Rows(),
            "News(3) [Daily(2)] Weekly(1) Sports New(1) First(1) Foreign(4) Ball(4) "
            "보관함(1) Keep(1) Later Box");
  EXPECT_EQ(pane->ChannelTitle(weekly) + pane->ChannelTitle(71) + pane->ChannelTitle(999),
            "WeeklyFirst");
}

TEST_F(LeftContainerTest, ARowSaysItsNameItsCountAndWhatIsWrong) {
  const QString unread = ", 읽지 않은 글 12개", isNew = ", 새글 있음, 지난번 새로 고침 실패";
  const QString markup = "<h1>x</h1> & <img src='file:///etc/logo.png'>";
  const struct {
    std::string title;
    int count, state;
    QString name, spoken, failure;
  } cases[] = {
      {"Day(2)", 12, kDownloadFailed, "Day(2)", unread + isNew,
       "지난번에 채널을 내려받지 못했습니다."},
      {Korean("속보\r\n경제\t\x01") + '\0', 0, kDocumentRefused, "속보 경제", isNew,
       "지난번에 받은 문서가 올바른 채널 문서가 아니었습니다."},
      {std::string(100'000, 'x'), 12, 0, QString(500, 'x') + "…", unread + ", 새글 있음", ""},
      {markup.toStdString(), 0, 0, markup, ", 새글 있음", ""},
  };
  for (const auto& [title, count, state, name, spoken, failure] : cases) {
    pane->ShowTree({{{"F", 1}}, {Channel(5, 1, title, count)}, {}, "", 0});
    pane->SetChannelState(5, state);
    pane->SetChannelNew(5, true);
    const QModelIndex row = tree->model()->index(0, 0, Row("F"));
    EXPECT_EQ(row.data(), count > 0 ? name + "(12)" : name);
    EXPECT_EQ(row.data(Qt::AccessibleTextRole).toString(), name + spoken);
    EXPECT_EQ(row.data(Qt::AccessibleDescriptionRole).toString(), failure);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(row.data(Qt::ToolTipRole).toString()).toPlainText(),
              failure.isEmpty() ? name : name + "\n" + failure);
  }
}

TEST_F(LeftContainerTest, ButtonsStandInARowAndThoseWithoutAnActionAreGrey) {
  Strings asked;
  frame.actions.addChannel = [&](const std::string& folder, const std::string& address) {
    asked.push_back(folder + " " + address);
  };
  Open();
  int right = 3;
  for (int i = 0; i < CRSS_LeftToolBarWnd::kButtonCount; ++i) {
    const QRect place = buttons[i]->geometry();
    EXPECT_EQ(place.x() - right, i == CRSS_LeftToolBarWnd::kAddChannel ? 10 : 4);
    EXPECT_EQ(place.y(), (40 - place.height()) / 2);
    EXPECT_EQ(buttons[i]->isEnabled(), i != CRSS_LeftToolBarWnd::kDirectory);
    right = place.right() + 1;
  }
  for (const char* const label : {"Weekly", "보관함", "News"}) {
    Click(PlaceOf(label));
    buttons[CRSS_LeftToolBarWnd::kAddChannel]->click();
  }
  pane->AddChannel("http://feed.example/");
  EXPECT_EQ(asked, (Strings{"News ", " ", "News ", "News http://feed.example/"}));
  EXPECT_EQ(OpenMenu("")->pos(), pane->mapToGlobal(QPoint(7, 54)));
  frame.actions.addChannel = [&](const std::string&, const std::string&) { pane.reset(); };
  pane->AddChannel("");  // the pane may go while the dialog is open
}

TEST_F(LeftContainerTest, TheTimersFollowTheLiveSettings) {
  int notices = 0;
  frame.actions.notifyOfNewPosts = [&] { ++notices; };
  const auto timers = pane->findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
  const auto minutes = [&](int timer) {
    return timers[timer]->isActive() ? timers[timer]->interval() / 60'000 : 0;
  };
  EXPECT_EQ(minutes(0) + minutes(1), 30);
  const struct {
    int mode, refresh, notice, refreshMinutes, noticeMinutes;
  } cases[] = {{0, 0, 0, 15, 15}, {0, 1, 1, 30, 30}, {0, 2, 2, 60, 60}, {0, 3, 3, 120, 0},
               {0, 4, -1, 0, 0},  {0, -1, 0, 0, 15}, {1, 0, 1, 0, 30}};
  for (const auto& [mode, refresh, notice, refreshMinutes, noticeMinutes] : cases) {
    frame.state.liveSettings = {mode, refresh, notice};
    pane->RestartUpdateTimer();
    pane->RestartNotificationTimer();
    EXPECT_EQ(minutes(0), refreshMinutes) << mode << refresh;
    EXPECT_EQ(minutes(1), noticeMinutes) << notice;
  }
  for (QTimer* const timer : timers) timer->start(0);
  ASSERT_TRUE(QTest::qWaitFor([&] { return frame.refreshes == 1 && notices > 1; }));
  EXPECT_FALSE(timers[0]->isActive());
}

TEST_F(LeftContainerTest, AScrollBarComesWhenTheRowsAndFivePixelsDoNotFit) {
  constexpr int kRows = 3 * 24 + 4 * 20;
  const QScrollBar& bar = *tree->verticalScrollBar();
  for (const auto& [height, maximum] :
       {std::pair(kRows + 5, 0), {kRows + 4, 1}, {100, kRows - 95}}) {
    pane->resize(251, height + 47);
    EXPECT_EQ(bar.isVisible(), maximum > 0) << height;
    EXPECT_EQ(bar.maximum(), maximum);
    EXPECT_EQ(bar.pageStep(), height);
  }
  tree->collapse(Row("News"));
  EXPECT_EQ(bar.maximum(), kRows - 2 * 20 - 95);
}

TEST_F(LeftContainerTest, MarksAreSeenLeftOfAChannelsIconAndInIt) {
  const QImage noMark = Picture("Daily", 14), icon = Picture("Daily", 28);
  pane->SetChannelState(daily, -2);
  EXPECT_NE(Picture("Daily", 28), icon);
  const auto moves = [&](const QString& label) {
    return QTest::qWaitFor([&, first = Picture(label, 14)] { return Picture(label, 14) != first; });
  };
  pane->SetChannelNewByMessage(daily, true);
  EXPECT_TRUE(moves("Daily"));
  Click(PlaceOf("News"));
  EXPECT_TRUE(moves("Daily"));
  Click(PlaceOf("Daily"));  // whoever looks at the posts turns it off
  Click(PlaceOf("News"));
  EXPECT_EQ(Picture("Daily", 14), noMark);
  pane->SetChannelNew(weekly, true);
  EXPECT_TRUE(moves("Weekly"));
  pane->SetChannelNewByMessage(daily, true);
  EXPECT_TRUE(moves("Daily")) << "though it stood still unseen";
  EXPECT_NE(Picture("Daily", 45), Picture("Weekly", 45)) << "the names";
}

}  // namespace
}  // namespace feedloom
