// Rows on the screen: how they look, clicks, keys, sorting and refilling.

#include <QComboBox>
#include <QHeaderView>
#include <QScrollBar>

#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

TEST_F(PostListPane, HasTheGivenColumnsAndRowHeight) {
  pane_.Fill(ChannelPosts(2));
  for (const auto& [column, width] : {std::pair(0, 30), {1, 278}, {2, 100}, {3, 100}}) {
    EXPECT_EQ(list_.columnWidth(column), width);
  }
  EXPECT_EQ(list_.visualRect(Index(1)).top() - list_.visualRect(Index(0)).top(), 19);
  EXPECT_EQ(list_.accessibleName(), "글 목록");
  EXPECT_EQ(list_.model()->headerData(1, Qt::Horizontal), "제목");
}

TEST_F(PostListPane, TheListLiesBelowTheToolbarInsideTheFrame) {
  const QWidget& toolbar = *pane_.findChild<QWidget*>("RSS_RightTopToolBar");
  EXPECT_EQ(toolbar.geometry(), QRect(6, 0, 548, 40));
  EXPECT_EQ(list_.geometry(), QRect(6, 41, 548, 193));
  const QImage picture = pane_.grab().toImage();
  EXPECT_EQ(picture.pixelColor(300, 40), QColor(0x76, 0x8A, 0x8E)) << "the line above the list";
  EXPECT_NE(picture.pixelColor(1, 20), picture.pixelColor(1, 100)) << "the corner and the edge";
}

TEST_F(PostListPane, ShowingAPostMarksItReadAndSelectsIt) {
  pane_.Fill(ChannelPosts(3));
  pane_.Show(1);
  EXPECT_EQ(frame_.shown, Strings{"Post 2"});
  EXPECT_EQ(frame_.db.Value("select post_readStatus from TB_POST where post_title = 'Post 2'"),
            "1");
  EXPECT_EQ(UnreadStored(), 2);
  EXPECT_TRUE(IsRead(1));
  EXPECT_FALSE(IsRead(0));
  EXPECT_EQ(frame_.read, (ReadPosts{{channel_, false}}));
  EXPECT_EQ(SelectedTitles(), Strings{"Post 2"});
  EXPECT_EQ(frame_.state.unreadTotal, 10);

  pane_.Show(1);
  EXPECT_EQ(frame_.shown.size(), 2u);
  EXPECT_EQ(frame_.read.size(), 1u) << "it was read already";
}

TEST_F(PostListPane, AReadPostLooksDifferentInItsMarkAndItsTitle) {
  PostList list = ChannelPosts(2);
  list.posts[1].title = list.posts[0].title;
  list.posts[1].readStatus = 1;
  pane_.Fill(std::move(list));
  const auto picture = [&](int row, int column) {
    return list_.viewport()->grab(list_.visualRect(Index(row).siblingAtColumn(column))).toImage();
  };
  QImage blank = picture(0, 0);
  blank.fill(list_.palette().color(QPalette::Base));
  EXPECT_NE(picture(0, 0), blank);
  EXPECT_NE(picture(1, 0), blank);
  EXPECT_NE(picture(0, 0), picture(1, 0));
  EXPECT_NE(picture(0, 1), picture(1, 1));
}

TEST_F(PostListPane, TheFirstPostShownIsTheOneAskedForOrTheFirst) {
  PostList list = ChannelPosts(4);
  list.posts[0].readStatus = 1;
  pane_.Fill(list);
  pane_.ShowFirst(FirstShown::First);
  pane_.ShowFirst(FirstShown::LastUnread);
  pane_.ShowFirst(FirstShown::FirstUnread);
  pane_.Show(2);
  pane_.ShowFirst(FirstShown::FirstUnread);
  EXPECT_EQ(frame_.shown, (Strings{"Post 4", "Post 1", "Post 3", "Post 2", "Post 4"}));
  pane_.Fill({});
  pane_.ShowFirst(FirstShown::First);
  pane_.ShowFirst(FirstShown::LastUnread);
  EXPECT_EQ(frame_.shown.back(), "(main page)");
  EXPECT_EQ(frame_.shown.size(), 7u);
}

TEST_F(PostListPane, EveryLeftPressCountsOnePostRead) {
  pane_.Fill(ChannelPosts(3));
  const QPoint point = list_.visualRect(Index(2)).center();
  QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(frame_.shown, Strings{"Post 1"});
  QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, point);
  QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(frame_.shown.size(), 1u) << "a double click is one click";
  Press(Qt::LeftButton, 2);
  EXPECT_EQ(frame_.shown.size(), 2u);
  EXPECT_EQ(frame_.state.unreadTotal, 8);
  EXPECT_EQ(UnreadStored(), 2);
}

TEST_F(PostListPane, OtherButtonsOnlySelectAndTheEmptyAreaShowsNothing) {
  pane_.Fill(ChannelPosts(3));
  Press(Qt::RightButton, 1);
  EXPECT_EQ(SelectedTitles(), Strings{"Post 2"});
  Press(Qt::LeftButton, 0, Qt::ControlModifier);
  Press(Qt::RightButton, 1);
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 3", "Post 2"})) << "a selected row keeps the others";
  Press(Qt::MiddleButton, 2);
  EXPECT_EQ(SelectedTitles(), Strings{"Post 1"});
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, {50, 150});
  EXPECT_EQ(frame_.shown, Strings{"Post 3"});
  EXPECT_EQ(frame_.state.unreadTotal, 9);
}

TEST_F(PostListPane, TodaysPostsAreMarkedButThoseOfTheWebDirectoryAreNot) {
  pane_.Fill(ChannelPosts(2));
  frame_.state.listMode = ListMode::WebDirectory;
  Press(Qt::LeftButton, 0);
  EXPECT_EQ(frame_.shown, Strings{"Post 2"});
  EXPECT_EQ(frame_.state.unreadTotal, 9);
  EXPECT_EQ(UnreadStored(), 2);
  EXPECT_FALSE(IsRead(0));
  EXPECT_EQ(frame_.read, ReadPosts());
  frame_.state.listMode = ListMode::Today;
  pane_.Show(0);
  EXPECT_EQ(UnreadStored(), 1);
}

TEST_F(PostListPane, ASavedPostIsMarkedInItsCabinet) {
  ChannelPosts(1);
  pane_.Fill(CabinetPosts(1));
  pane_.Show(0);
  EXPECT_EQ(frame_.shown, Strings{"kept 1"});
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  EXPECT_EQ(UnreadStored(), 1) << "the channel's post has the same id";
  EXPECT_EQ(frame_.read, (ReadPosts{{cabinet_, true}}));
}

TEST_F(PostListPane, APostThatCannotBeMarkedIsShownAndStaysUnread) {
  pane_.Fill(ChannelPosts(2));
  RefuseInStore("update", "TB_POST");
  pane_.Show(0);
  EXPECT_EQ(frame_.shown, Strings{"Post 2"});
  EXPECT_FALSE(IsRead(0));
  EXPECT_EQ(frame_.read, ReadPosts());
  EXPECT_EQ(SelectedTitles(), Strings{"Post 2"});
}

TEST_F(PostListPane, EnterShowsTheCurrentPostWithoutCounting) {
  pane_.Fill(ChannelPosts(3));
  Key(Qt::Key_Return);
  EXPECT_EQ(frame_.shown, Strings()) << "there is no current row";
  pane_.Show(0);
  Key(Qt::Key_Down);
  EXPECT_EQ(frame_.shown, Strings{"Post 3"});
  Key(Qt::Key_Return);
  QTest::keyClick(&list_, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Post 2", "Post 2"}));
  EXPECT_EQ(frame_.state.unreadTotal, 10);
}

TEST_F(PostListPane, NAndPGoToUnreadPostsAndThenOutOfTheList) {
  PostList list = ChannelPosts(4);
  for (PostRow& post : list.posts) post.title = "n " + post.title;  // a view would go to these
  list.posts[1].readStatus = 1;
  pane_.Fill(std::move(list));
  Key(Qt::Key_N);
  Key(Qt::Key_N);
  EXPECT_EQ(frame_.shown, (Strings{"n Post 4", "n Post 2"}));
  EXPECT_EQ(SelectedTitles(), Strings{"n Post 2"}) << "what was shown before is not selected";
  Key(Qt::Key_P);
  EXPECT_EQ(frame_.unreadRowsAsked, std::vector{false});
  Key(Qt::Key_N);
  Key(Qt::Key_N);
  EXPECT_EQ(frame_.shown.back(), "n Post 1");
  EXPECT_EQ(frame_.unreadRowsAsked, (std::vector{false, true}));
}

TEST_F(PostListPane, KeysGoBetweenTheListAndTheSearchBox) {
  pane_.findChild<QComboBox*>()->setCurrentIndex(static_cast<int>(SearchScope::Local));
  pane_.Fill(ChannelPosts(3));
  QTest::keyClick(&list_, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(SelectedTitles().size(), 3u);
  QTest::keyClick(&list_, Qt::Key_F, Qt::ControlModifier);
  EXPECT_FALSE(list_.hasFocus());
  Key(Qt::Key_N);
  Key(Qt::Key_Delete);
  EXPECT_EQ(frame_.shown, Strings()) << "letters are the word's there";
  EXPECT_EQ(frame_.questions, Strings());
  Key(Qt::Key_Return);
  EXPECT_TRUE(frame_.lists.size() == 1 && frame_.lists[0].posts.empty()) << "none has an n";
  Key(Qt::Key_Escape);
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(PostListPane, TheHeaderSortsAndChangesWidthsByKeysToo) {
  pane_.Fill(NumberedPosts(3));
  QHeaderView& header = *list_.header();
  QTest::keyClick(&list_, Qt::Key_Up, Qt::AltModifier);
  EXPECT_TRUE(header.hasFocus());
  EXPECT_EQ(header.accessibleName(), "읽음");
  Key(Qt::Key_Right);
  EXPECT_EQ(header.accessibleName(), "제목");
  for (const auto& [name, first] : std::initializer_list<std::pair<const char*, const char*>>{
           {"제목, 오름차순", "Post 1"}, {"제목, 내림차순", "Post 3"}, {"제목", "Post 3"}}) {
    Key(Qt::Key_Space);
    EXPECT_EQ(header.accessibleName(), name);
    EXPECT_EQ(Titles().front(), first);
  }
  QTest::keyClick(&header, Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(kTitleColumn), 288);
  for (int i = 0; i < 40; ++i) QTest::keyClick(&header, Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(kTitleColumn), header.minimumSectionSize());
  Key(Qt::Key_Down);
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(PostListPane, AFillBeginsAtTheTopInTheGivenOrderWithNothingSelected) {
  pane_.Fill(NumberedPosts(50));
  list_.header()->setSortIndicator(kTitleColumn, Qt::AscendingOrder);
  pane_.Show(49);
  EXPECT_NE(TopTitle(), "Post 40");
  pane_.Fill(NumberedPosts(40));
  EXPECT_EQ(TopTitle(), "Post 40");
  EXPECT_EQ(list_.header()->sortIndicatorSection(), -1);
  EXPECT_EQ(SelectedTitles(), Strings());
  EXPECT_FALSE(list_.currentIndex().isValid());
}

TEST_F(PostListPane, ClicksOnAHeadingSortUpDownAndNotAtAll) {
  PostList list = NumberedPosts(3);
  list.posts[1].title = "A title";
  pane_.Fill(std::move(list));
  const auto clickTitle = [&] {
    QTest::mouseClick(list_.header()->viewport(), Qt::LeftButton, {},
                      {list_.header()->sectionViewportPosition(kTitleColumn) + 50, 5});
  };
  clickTitle();
  EXPECT_EQ(Titles(), (Strings{"A title", "Post 1", "Post 3"}));
  EXPECT_EQ(list_.header()->sortIndicatorSection(), kTitleColumn);
  clickTitle();
  EXPECT_EQ(Titles(), (Strings{"Post 3", "Post 1", "A title"}));
  clickTitle();
  EXPECT_EQ(Titles(), (Strings{"Post 3", "A title", "Post 1"}));
  EXPECT_EQ(list_.header()->sortIndicatorSection(), -1);
}

// Fifty posts, two of them selected, the list scrolled away from these.
class PlacedList : public PostListPane {
 protected:
  PlacedList() {
    pane_.Fill(NumberedPosts(50));
    pane_.Show(2);
    Press(Qt::LeftButton, 1, Qt::ControlModifier);
    list_.verticalScrollBar()->setValue(20);
    frame_.shown.clear();
  }

  std::string TitleOnLine(int line) const {
    return Title(list_.indexAt({0, line * CVxListCtrl::kRowHeight}).row());
  }
};

TEST_F(PlacedList, SortingKeepsSelectionCurrentRowAndPlaceByPost) {
  list_.header()->setSortIndicator(kDateColumn, Qt::AscendingOrder);  // all alike
  EXPECT_EQ(TopTitle(), "Post 30");
  list_.header()->setSortIndicator(kTitleColumn, Qt::DescendingOrder);
  EXPECT_EQ(TopTitle(), "Post 30");
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 49", "Post 48"}));
  EXPECT_EQ(CurrentTitle(), "Post 49");

  pane_.Refill(NumberedPosts(55));
  EXPECT_EQ(Title(0), "Post 9") << "so does the order, whatever comes";
  EXPECT_EQ(TopTitle(), "Post 30");
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 49", "Post 48"}));
  list_.header()->setSortIndicator(-1, Qt::AscendingOrder);
  EXPECT_EQ(list_.currentIndex().row(), 6);
}

TEST_F(PlacedList, TheCurrentPostStaysOnItsLineWhenItIsSeen) {
  list_.verticalScrollBar()->setValue(20);
  pane_.Show(25);
  ASSERT_EQ(TitleOnLine(5), "Post 25");
  list_.header()->setSortIndicator(kTitleColumn, Qt::AscendingOrder);
  EXPECT_EQ(TitleOnLine(5), "Post 25");
  EXPECT_EQ(TitleOnLine(4), "Post 24");
}

TEST_F(PlacedList, RefillingKeepsSelectionCurrentRowAndPlaceByPost) {
  pane_.Refill(NumberedPosts(55));
  EXPECT_EQ(Title(0), "Post 55");
  EXPECT_EQ(TopTitle(), "Post 30");
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 49", "Post 48"}));
  EXPECT_EQ(CurrentTitle(), "Post 49");
  EXPECT_EQ(frame_.shown, Strings());
  Key(Qt::Key_Return);
  EXPECT_EQ(frame_.shown, Strings{"Post 49"});
}

TEST_F(PlacedList, RefillingKeepsThePlaceAtTheEndOfTheList) {
  list_.selectionModel()->clear();
  list_.verticalScrollBar()->setValue(list_.verticalScrollBar()->maximum());
  const std::string top = TopTitle();
  pane_.Refill(NumberedPosts(500));
  EXPECT_EQ(TopTitle(), top);
}

TEST_F(PlacedList, PostsThatAreGoneLeaveTheOthersWhereTheyStood) {
  PostList fewer = NumberedPosts(50);
  std::erase_if(fewer.posts, [](const PostRow& post) {
    return post.id == 49 || post.id == 30 || post.id == 29;
  });
  pane_.Refill(std::move(fewer));
  EXPECT_EQ(SelectedTitles(), Strings{"Post 48"});
  EXPECT_FALSE(list_.currentIndex().isValid());
  EXPECT_EQ(TitleOnLine(2), "Post 28");
  pane_.Refill({});
  EXPECT_EQ(list_.model()->rowCount(), 0);
}

TEST_F(PostListPane, ShiftSelectsFromThePostToWhichAKeyHasLed) {
  PostList list = ChannelPosts(8);
  for (int row = 1; row < 5; ++row) list.posts[static_cast<std::size_t>(row)].readStatus = 1;
  pane_.Fill(std::move(list));
  Press(Qt::LeftButton, 0);
  Key(Qt::Key_N);
  EXPECT_EQ(SelectedTitles(), Strings{"Post 3"});
  QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(&list_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 3", "Post 2", "Post 1"}));
  Press(Qt::LeftButton, 6);
  Press(Qt::LeftButton, 7, Qt::ShiftModifier);
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 2", "Post 1"}));
}

}  // namespace
}  // namespace feedloom
