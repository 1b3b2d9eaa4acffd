// The rows, their counts and marks, what clicks and keys select, and the buttons.

#include "threads/Messages.h"
#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {

struct LeftContainerTest : LeftPaneFixture {
  LeftContainerTest() { Open(); }
  void ReadPost(int ownerId, bool isScrapPost, int id = 0) {
    pane->PostWasRead({0, id, "", "", "", "", "", "", "", 0, ownerId}, isScrapPost);
  }
  static ChannelRow Channel(int id, int folderId, const std::string& title, int unread = 0) {
    return {{.id = id, .folderId = folderId, .order = 0, .title = title}, unread};
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
  // What is painted left of the icon of "Daily".
  QImage Mark() {
    return tree->viewport()->grab({14, tree->visualRect(Row("Daily")).top(), 13, 20}).toImage();
  }
};

TEST_F(LeftContainerTest, OpensWithoutASelectionAndListsThePostsOfTheRowThatIsClicked) {
  pane->ReloadSelection();
  EXPECT_EQ(Rows(), "News(3) Daily(2) Weekly(1) Sports 보관함(1) Keep(1) Later");
  EXPECT_EQ(tree->viewport()->pos() + tree->visualRect(Row("Daily")).topLeft(), QPoint(28, 24));
  const std::pair<const char*, const char*> cases[] = {
      {"News", "Daily Post 2, Daily Post 1, Weekly Post 1, "},
      {"Sports", ""},
      {"Later", "+"},
      {"보관함", "+Keep Saved, "},
      {"Daily", "Daily Post 2, Daily Post 1, "}};
  for (const auto& [label, posts] : cases) {
    Click(PlaceOf(label));
    EXPECT_EQ(Listed(), posts) << label;
  }
  EXPECT_EQ(pane->SelectedRow(), (RowKey{RowKind::Channel, daily}));
  frame.db.Sql("update TB_POST set post_title = 'Fresh'");
  pane->ReloadSelection();
  EXPECT_EQ(frame.relists.at(0).posts.at(1).title, "Fresh");
}

TEST_F(LeftContainerTest, EachClickListsOnce) {
  const QPoint header = PlaceOf("News"), channel = PlaceOf("Daily"), cabinet = PlaceOf("Keep");
  EXPECT_EQ(AfterClick({100, 330}), " 0") << "below the rows";
  for (const bool isOpen : {false, true}) {
    EXPECT_EQ(AfterClick({7, header.y()}), " 0") << "the expand mark";
    EXPECT_EQ(tree->isExpanded(Row("News")), isOpen);
  }
  EXPECT_EQ(AfterClick(channel), "Daily(2) 1");
  EXPECT_EQ(AfterClick(channel, Qt::LeftButton, true), "Daily(2) 2");
  EXPECT_EQ(AfterClick(channel, Qt::RightButton), "Daily(2) 2");
  EXPECT_EQ(AfterClick(cabinet, Qt::RightButton), "Keep(1) 3");
  Click(channel);
  tree->collapse(Row("News"));
  EXPECT_EQ(Selection(), "News(3) 5") << "no command acts on a row out of sight";
}

TEST_F(LeftContainerTest, EachKeySelectsAndListsOnce) {
  QSignalSpy search(pane.get(), &CRSS_LeftContainer::SearchWanted);
  const std::pair<Qt::Key, const char*> cases[] = {
      {Qt::Key_End, "Later 1"},    {Qt::Key_Up, "Keep(1) 2"},    {Qt::Key_Home, "News(3) 3"},
      {Qt::Key_Home, "News(3) 3"}, {Qt::Key_Enter, "News(3) 4"}, {Qt::Key_Return, "News(3) 5"}};
  for (const auto& [key, selection] : cases) {
    Press(key);
    tree->Settle();
    EXPECT_EQ(Selection(), selection);
  }
  QTest::keyClick(tree, Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(search.count(), 1);
}

TEST_F(LeftContainerTest, KeysListWhereTheyRestAndTheFirstPostIsOnlyGlimpsedByACarefulHost) {
  for (const auto reached : {FirstPost::First, FirstPost::Glimpse}) {
    if (reached == FirstPost::Glimpse) frame.skin.SetHostValue(kValueSelection, kSelectionCareful);
    Open();
    frame.lists.clear();
    frame.firstPosts.clear();
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Home, Qt::Key_Down}) Press(key);
    EXPECT_EQ(Selection(), "Daily(2) 0");
    tree->findChild<QTimer*>("keyRest")->setInterval(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !frame.lists.empty(); }));
    EXPECT_EQ(Listed(), "Daily Post 2, Daily Post 1, ");
    Press(Qt::Key_Down);
    tree->clearFocus();  // the rest is not waited for
    EXPECT_EQ(Selection(), "Weekly(1) 2");
    Press(Qt::Key_Up);
    Press(Qt::Key_Return);
    tree->collapse(Row("News"));
    EXPECT_EQ(frame.firstPosts, (std::vector{reached, reached, FirstPost::First, reached}));
  }
}

TEST_F(LeftContainerTest, GoesToTheNextOrPreviousRowWithUnreadPosts) {
  pane->SetChannelUnread(weekly, 0);
  const char* const cases[][3] = {{"", "Daily(2)", "Keep(1)"},
                                  {"News", "Keep(1)", "News(2)"},
                                  {"Daily", "Keep(1)", "Daily(2)"},
                                  {"Keep", "Keep(1)", "Daily(2)"}};
  for (const auto& [from, next, previous] : cases) {
    for (const bool forward : {true, false}) {
      *from ? tree->setCurrentIndex(Row(from)) : tree->ClearSelection();
      pane->GoToUnreadRow(forward);
      EXPECT_EQ(tree->SelectedRow().data(), forward ? next : previous) << from;
    }
  }
  using enum FirstPost;
  frame.firstPosts.clear();
  for (const bool forward : {true, false}) pane->GoToUnreadRow(forward);
  Click(PlaceOf("News"));
  EXPECT_EQ(frame.firstPosts, (std::vector{FirstUnread, LastUnread, First}));
}

TEST_F(LeftContainerTest, AGroupsCountFollowsItsRowsAndNoneGoesBelowZero) {
  EXPECT_EQ(pane->SetChannelUnread(daily, 5), 3);
  for (const int count : {5, -1}) EXPECT_EQ(pane->SetChannelUnread(daily, count), 0);
  EXPECT_EQ(pane->SetChannelUnread(999, 7), 0);
  for (int i = 0; i < 3; ++i) ReadPost(weekly, false);
  for (const int owner : {keep, 999}) ReadPost(owner, true);
  EXPECT_EQ(Rows(), "News(5) Daily(5) Weekly Sports 보관함 Keep Later");
  for (const int cabinet : {keep, 999})
    pane->UnreadPostWasSaved(cabinet);  // one of another program
  pane->SetChannelUnread(weekly, 2);
  ReadPost(0, false, 3);  // the weekly one, found by a search
  EXPECT_EQ(Rows(), "News(6) Daily(5) Weekly(1) Sports 보관함(2) Keep(1) Later");
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
  pane->UnreadPostWasSaved(6);
  EXPECT_EQ(Rows(), "F(2) X(2) G(2) Y(2) 보관함(1) B(1)");
}

TEST_F(LeftContainerTest, RowsComeAndMoveWithTheirCountsAndTheSelectionStaysInSight) {
  const int ball = frame.db.AddChannelWithPosts(sports, "C", 4);
  for (const int channel : {ball, 999}) pane->AddStoredChannel(channel);
  EXPECT_EQ(pane->SetChannelUnread(ball, 4), 4) << "a refresh counts its posts later";
  Click(PlaceOf("Daily"));
  for (int i = 0; i < 2; ++i) {  // each once
    pane->AppendFolder({"N", 70, 3});
    pane->AppendChannel(Channel(71, 70, "A", 1));
    pane->AppendChannel(Channel(73, 999, "Nowhere"));
    pane->AppendCabinet({72, "B"});
    pane->MoveChannel(daily, 70);
    pane->MoveChannel(999, 70);
  }
  EXPECT_EQ(Rows(),
            "News(1) Weekly(1) Sports(4) C(4) N(3) A(1) [Daily(2)] 보관함(1) Keep(1) Later B");
  pane->MoveChannel(ball, AddFolder(store, "X", 9));  // by another program
  tree->collapse(Row("News"));
  pane->MoveChannel(daily, news);
  EXPECT_EQ(Rows(),
            "News(3) [Daily(2)] Weekly(1) Sports N(1) A(1) X(4) C(4) 보관함(1) Keep(1) Later B");
  EXPECT_EQ(pane->Subscriptions().size(), 4U) << "the cabinets are none";
}

TEST_F(LeftContainerTest, ANewerReadingChangesOnlyWhatIsOther) {
  const int ball = frame.db.AddChannelWithPosts(sports, "C", 4);
  pane->ShowTree(ReadTree(store).value());
  pane->SetChannelsNew({&daily, 1}, true);
  tree->collapse(Row("Sports"));
  Click(PlaceOf("Daily"));
  pane->SetChannelsNew({&daily, 1}, true);
  const auto lists = frame.lists.size();
  const TreeContent moved{{{"News", news, 1, 0}, {"Other", 90, 2, 5}},
                          {Channel(weekly, news, "Weekly now"), Channel(daily, 90, "Daily", 5),
                           Channel(91, 90, "Fresh"), Channel(ball, 999, "Nowhere")},
                          {{keep, "Kept", 1, 0}, {92, "New", 2, 3}},
                          "",
                          3};
  for (int i = 0; i < 2; ++i) pane->UpdateTree(moved);
  EXPECT_EQ(Rows(), "News Weekly now Other(5) Fresh [Daily(5)] 보관함(3) Kept New(3)");
  EXPECT_TRUE(Row("Daily").data(GroupTreeModel::IsNewRole).toBool());
  EXPECT_EQ(frame.lists.size(), lists);
  pane->UpdateTree(
      {{{"News", news}, {"Sports", sports}}, {Channel(daily, 90, "Daily")}, {}, "", 0});
  EXPECT_EQ(Rows(), "News Sports 보관함") << "the selected row has gone, and no other is selected";
  EXPECT_EQ(Listed(), "");
}

TEST_F(LeftContainerTest, ARowSaysItsNameItsCountAndWhatIsWrong) {
  const struct {
    std::string title;
    int state;
    QString name, failure;
  } cases[] = {
      {"Day(2)", kDownloadFailed, "Day(2)", "\n지난번에 채널을 내려받지 못했습니다."},
      {Korean("속보\r\n경제\t\x01") + '\0', kDocumentRefused, "속보 경제",
       "\n지난번에 받은 문서가 올바른 채널 문서가 아니었습니다."},
      {"Paid", kLoginWanted, "Paid",
       "\n서버가 이름과 비밀번호를 요구하거나 거절했습니다. 입력하려면 채널을 다시 추가하십시오."},
      {std::string(100'000, 'x'), 0, QString(500, 'x') + "…", ""},
      {"<h1>x</h1> & <img src='/etc/logo.png'>", 0, "<h1>x</h1> & <img src='/etc/logo.png'>", ""},
  };
  for (const auto& [title, state, name, failure] : cases) {
    pane->ShowTree({{{"F", 1}}, {Channel(5, 1, title, 12)}, {}, "", 0});
    pane->SetChannelState(5, state);
    const QModelIndex row = tree->model()->index(0, 0, Row("F"));
    EXPECT_EQ(row.data(), name + "(12)");
    EXPECT_EQ(QTextDocumentFragment::fromHtml(row.data(Qt::ToolTipRole).toString()).toPlainText(),
              name + failure);
  }
}

TEST_F(LeftContainerTest, TheTipOfARowSaysWhyItsChannelFailedAndADeadOneIsStruckOut) {
  pane->SetChannelState(daily, kDownloadFailed);
  const QImage failing = tree->viewport()->grab(tree->visualRect(Row("Daily"))).toImage();
  QSignalSpy changes(tree->model(), &QAbstractItemModel::dataChanged);
  frame.visits[daily].fault = {FeedFaultKind::HttpStatus, 410};
  pane->SetChannelState(daily, kDownloadFailed);
  EXPECT_EQ(changes.count(), 1) << "a failure may have another reason than the one before";
  const QString told = "서버의 응답: 410 (영구히 사라짐)\n이 피드는 없어진 듯합니다.";
  EXPECT_EQ(Row("Daily").data(Qt::AccessibleDescriptionRole), told);
  EXPECT_TRUE(Row("Daily").data(Qt::ToolTipRole).toString().contains("410"));
  EXPECT_NE(tree->viewport()->grab(tree->visualRect(Row("Daily"))).toImage(), failing);
}

TEST_F(LeftContainerTest, RowsAreDrawnAlsoWithoutTheSkinsImages) {
  const Skin& shipped = frame.skin.Get();
  const auto text = [&](auto section, auto key) { return shipped.GetText(section, key); };
  const auto value = [&](auto section, auto key) {
    return strstr(key, "_GROUP_") ? "" : shipped.GetSkinValue(section, key);
  };
  const Skin bare({text, value}, shipped.Config());
  frame.shownSkin = &bare;
  AddFolder(store, std::string(200, 'x'), 3);
  Open();
  tree->clearFocus();
  // Where a row is not of the ground's colour, from `left` to `right`.
  const auto drawn = [&](const char* label, int left, int right) {
    const QRect row = tree->visualRect(Row(label));
    const QPixmap strip = tree->viewport()->grab({left, row.top(), right - left, row.height()});
    const QBitmap mask = strip.createMaskFromColor(tree->palette().color(QPalette::Base));
    return QRegion(mask).boundingRect().translated(left, 0);
  };
  pane->SetChannelState(weekly, kDownloadFailed);
  const std::pair<const char*, QRgb> icons[] = {
      {"Daily", 0x5B8DB8}, {"Weekly", 0xC84A3A}, {"Keep", 0xD08A20}, {"Later", 0x9A7B4F}};
  for (const auto& [label, color] : icons) {
    EXPECT_EQ(drawn(label, 0, 41), QRect(30, 5, 9, 9));
    const QImage icon = tree->viewport()->grab({34, PlaceOf(label).y(), 1, 1}).toImage();
    EXPECT_EQ(icon.pixelColor(0, 0), QColor(color)) << label;
    EXPECT_NEAR(drawn(label, 41, 200).left(), 46, 1);
  }
  QPixmap icon(32, 32);
  icon.fill(Qt::green);
  pane->ShowIcons({{daily, icon}, {weekly, icon}});
  EXPECT_EQ(drawn("Daily", 0, 45), QRect(27, 2, 16, 16));
  EXPECT_EQ(drawn("Weekly", 0, 45), QRect(30, 5, 9, 9)) << "that it fails is more important";
  pane->ShowIcons({});
  EXPECT_EQ(drawn("Daily", 0, 45), QRect(30, 5, 9, 9));
  EXPECT_EQ(drawn("News", 0, 14), QRect(3, 10, 8, 5));
  tree->collapse(Row("News"));
  EXPECT_EQ(drawn("News", 0, 14), QRect(5, 8, 5, 8));
  EXPECT_EQ(drawn("Sports", 0, 14), QRect()) << "nothing is below it";
  EXPECT_NEAR(drawn("xxx", 14, 239).left(), 19, 1);
  EXPECT_NEAR(drawn("xxx", 14, 239).right(), 228, 4) << "an ellipsis";
  for (const bool isFocused : {true, false}) {
    Click(PlaceOf("Keep"));
    isFocused ? tree->setFocus() : tree->clearFocus();
    const auto group = isFocused ? QPalette::Active : QPalette::Inactive;
    const QImage row = tree->viewport()->grab({0, PlaceOf("Keep").y() - 10, 9, 20}).toImage();
    EXPECT_EQ(row.pixelColor(3, 3), tree->palette().color(group, QPalette::Highlight));
    EXPECT_EQ(row.pixelColor(0, 9) == tree->palette().color(QPalette::Link), isFocused);
  }
}

TEST_F(LeftContainerTest, CountsStandAtTheRightEndAndAClosedFolderHasItsChannelsMarks) {
  const auto part = [this](const char* label, int left, int width) {
    const QRect row = tree->visualRect(Row(label));
    return tree->viewport()->grab({left, row.top(), width, row.height()}).toImage();
  };
  const int right = tree->viewport()->width() - 20, middle = right - 40;
  const QImage name = part("Daily", 0, right), counted = part("Daily", right, 20);
  pane->SetChannelUnread(daily, 7);
  EXPECT_EQ(part("Daily", 0, right), name);
  EXPECT_NE(part("Daily", right, 20), counted);
  const QImage open = part("News", middle, 40);
  tree->collapse(Row("News"));
  EXPECT_EQ(part("News", middle, 40), open);
  pane->SetChannelState(weekly, kDownloadFailed);
  const QImage failing = part("News", middle, 40);
  EXPECT_NE(failing, open);
  pane->SetChannelsNew({&weekly, 1}, true);
  EXPECT_NE(part("News", middle, 40), failing);
  tree->expand(Row("News"));
  EXPECT_EQ(part("News", middle, 40), open);
}

TEST_F(LeftContainerTest, AChannelIsAddedToTheSelectedFolder) {
  QStringList asked;
  DialogAnswers answers;
  for (int i = 0; i < 2; ++i) {
    answers.Next([&](QDialog& dialog) {
      asked << dialog.findChild<QComboBox*>()->currentText()
            << dialog.findChild<QLineEdit*>()->text();
    });
  }
  frame.db.AddChannelWithPosts(sports, "Ball", 1);
  Open();
  Click(PlaceOf("Ball"));
  buttons[CRSS_LeftToolBarWnd::kAddChannel]->click();
  Click(PlaceOf("보관함"));
  pane->AddChannel("http://feed.example/");
  EXPECT_EQ(asked, (QStringList{"Sports", "", "News", "http://feed.example/"}));
  answers.Next([&](QDialog&) { pane.reset(); });
  pane->AddChannel("");  // the pane may go while the dialog is open
}

TEST_F(LeftContainerTest, AMarkMovesBesideAChannelWithNewPostsUntilItIsSelected) {
  const QImage noMark = Mark();
  pane->SetChannelState(daily, -2);
  for (const bool byMessage : {false, true}) {
    byMessage ? pane->SetChannelNewByMessage(daily, true) : pane->SetChannelsNew({&daily, 1}, true);
    const QImage first = Mark();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Mark() != first; }));
  }
  EXPECT_EQ(Row("Daily").data(Qt::AccessibleTextRole),
            "Daily, 읽지 않은 글 2개, 새 글 있음, 지난번 새로 고침 실패");
  Click(PlaceOf("Daily"));  // whoever looks at the posts turns it off
  Click(PlaceOf("News"));
  EXPECT_EQ(Mark(), noMark);
}

}  // namespace feedloom
