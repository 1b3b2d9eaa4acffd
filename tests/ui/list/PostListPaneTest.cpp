// Rows on the screen: how they look, clicks, keys, sorting and refilling.
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

using ReadPosts = std::vector<std::pair<int, bool>>;

TEST_F(PostListPane, TheListLiesBelowTheToolbarInsideTheFrameWithItsColumns) {
  pane_.Fill(ChannelPosts(2));
  EXPECT_EQ(bar_.geometry(), QRect(6, 0, 548, 40));
  EXPECT_EQ(list_.geometry(), QRect(6, 41, 548, 193));
  const QImage picture = pane_.grab().toImage();
  EXPECT_EQ(picture.pixelColor(300, 40), QColor(0x76, 0x8A, 0x8E)) << "the line above the list";
  EXPECT_NE(picture.pixelColor(1, 20), picture.pixelColor(1, 100)) << "the corner and the edge";
  EXPECT_EQ(list_.visualRect(Index(1)), QRect(30, 19, 278, 19));
  EXPECT_EQ(list_.columnWidth(kDateColumn) + list_.columnWidth(kOwnerColumn), 200);
  EXPECT_EQ(list_.model()->headerData(kTitleColumn, Qt::Horizontal), "제목");
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
  EXPECT_TRUE(picture(0, 0) != blank && picture(1, 0) != blank);
  EXPECT_NE(picture(0, 0), picture(1, 0));
  EXPECT_NE(picture(0, 1), picture(1, 1));
}

TEST_F(PostListPane, AShownPostIsSelectedAndMarkedReadOnceWhereItIsStored) {
  pane_.Fill(ChannelPosts(3));
  for (int i = 0; i < 2; ++i) pane_.Show(1);
  EXPECT_EQ(Rows(), "Post 3 >(Post 2) Post 1 ");
  EXPECT_EQ(UnreadStored(), "Post 1 Post 3");
  EXPECT_EQ(frame_.read, (ReadPosts{{channel_, false}}));
  frame_.state.listMode = ListMode::WebDirectory;
  pane_.Show(0);
  EXPECT_EQ(Rows(), ">Post 3 >(Post 2) Post 1 ");
  frame_.state.listMode = ListMode::Today;
  pane_.Show(0);
  EXPECT_EQ(UnreadStored(), "Post 1");
  pane_.Fill(CabinetPosts(1));
  pane_.Show(0);
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  EXPECT_EQ(UnreadStored(), "Post 1") << "the channel's post has the same id";
  EXPECT_EQ(frame_.read.back(), std::pair(cabinet_, true));
  pane_.Fill(ChannelPosts(1));
  RefuseInStore("update", "TB_POST");
  pane_.Show(0);
  EXPECT_EQ(Rows(), ">Post 1 ");
  EXPECT_EQ(frame_.read.size(), 3U);
  EXPECT_EQ(frame_.shown, (Strings{"Post 2", "Post 2", "Post 3", "Post 3", "kept 1", "Post 1"}));
  EXPECT_EQ(frame_.state.unreadTotal, 10);
}

TEST_F(PostListPane, TheFirstPostShownIsTheOneAskedForOrTheFirst) {
  PostList list = ChannelPosts(4);
  list.posts[0].readStatus = 1;
  pane_.Fill(list);
  using enum FirstShown;
  for (const FirstShown first : {First, LastUnread, FirstUnread}) pane_.ShowFirst(first);
  pane_.Show(2);
  pane_.ShowFirst(FirstUnread);
  EXPECT_EQ(frame_.shown, (Strings{"Post 4", "Post 1", "Post 3", "Post 2", "Post 4"}));
  pane_.Fill({});
  for (const FirstShown first : {First, LastUnread}) pane_.ShowFirst(first);
  EXPECT_EQ(frame_.shown.size(), 7U);
  EXPECT_EQ(frame_.shown.back(), "(main page)");
}

TEST_F(PostListPane, EveryLeftPressShowsAPostAndOtherButtonsOnlySelect) {
  pane_.Fill(ChannelPosts(3));
  const QPoint point = list_.visualRect(Index(2)).center();
  QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(frame_.shown, Strings{"Post 1"});
  QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, point);
  QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(frame_.state.unreadTotal, 9) << "a double click is one click";
  Press(Qt::LeftButton, 2);
  Press(Qt::RightButton, 1);
  EXPECT_EQ(Selected(), "Post 2 ");
  Press(Qt::LeftButton, 0, Qt::ControlModifier);
  Press(Qt::RightButton, 1);
  EXPECT_EQ(Selected(), "Post 3 Post 2 ") << "a selected row keeps the others";
  Press(Qt::MiddleButton, 2);
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, {50, 150});
  EXPECT_EQ(frame_.shown, (Strings{"Post 1", "Post 1", "Post 3"}));
  EXPECT_EQ(frame_.state.unreadTotal, 7) << "each click counts, whatever was read before";
}

TEST_F(PostListPane, KeysShowTheCurrentPostTheUnreadOnesAndLeadToTheSearchBox) {
  PostList list = ChannelPosts(6);
  for (PostRow& post : list.posts) post.title = "n " + post.title;  // what a view would seek
  for (const int row : {2, 3}) list.posts[static_cast<std::size_t>(row)].readStatus = 1;
  pane_.Fill(std::move(list));
  Key(Qt::Key_Return);
  EXPECT_EQ(frame_.shown, Strings()) << "there is no current row";
  for (const Qt::Key key : {Qt::Key_N, Qt::Key_Down, Qt::Key_Return, Qt::Key_N}) Key(key);
  Key(Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(frame_.shown, (Strings{"n Post 6", "n Post 5", "n Post 2", "n Post 2"}));
  for (int i = 0; i < 2; ++i) Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "n Post 2 n Post 1 ") << "from where N has led";
  Key(Qt::Key_P);
  EXPECT_EQ(frame_.unreadRowsAsked, std::vector{false});
  for (int i = 0; i < 2; ++i) Key(Qt::Key_N);
  EXPECT_EQ(frame_.unreadRowsAsked, (std::vector{false, true, true}));
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(list_.SelectedRows().size(), 6U);
  scope_.setCurrentIndex(static_cast<int>(SearchScope::Local));
  Key(Qt::Key_F, Qt::ControlModifier);
  for (const Qt::Key key : {Qt::Key_X, Qt::Key_N, Qt::Key_Delete, Qt::Key_Return}) Key(key);
  EXPECT_EQ(frame_.questions, Strings());
  EXPECT_TRUE(frame_.lists.size() == 1 && frame_.lists[0].posts.empty()) << "none has an xn";
  Key(Qt::Key_Escape);
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(PostListPane, HeadingsSortUpDownAndNotAtAllByClicksAndKeys) {
  PostList list = NumberedPosts(3);
  list.posts[1].title = "A title";
  pane_.Fill(std::move(list));
  QHeaderView& header = *list_.header();
  Key(Qt::Key_Up, Qt::AltModifier);
  Key(Qt::Key_Right);
  EXPECT_EQ(header.accessibleName(), "제목");
  const std::pair<const char*, const char*> orders[] = {
      {"제목, 오름차순", "A title Post 1 Post 3 "},
      {"제목, 내림차순", "Post 3 Post 1 A title "},
      {"제목", "Post 3 A title Post 1 "}};
  for (const auto& [name, rows] : orders) {
    Key(Qt::Key_Space);
    EXPECT_EQ(header.accessibleName(), name);
    EXPECT_EQ(Rows(), rows);
  }
  for (const auto& [name, rows] : orders) {
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {80, 5});
    EXPECT_EQ(Rows(), rows);
    EXPECT_EQ(header.sortIndicatorSection(), name == orders[2].first ? -1 : kTitleColumn);
  }
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(kTitleColumn), 288);
  for (int i = 0; i < 40; ++i) Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(kTitleColumn), header.minimumSectionSize());
  Key(Qt::Key_Down);
  EXPECT_TRUE(list_.hasFocus());
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

TEST_F(PlacedList, SortingAndRefillingKeepSelectionCurrentRowOrderAndPlaceByPost) {
  pane_.Refill(NumberedPosts(55));
  EXPECT_EQ(Title(0) + TopTitle() + Selected(), "Post 55Post 30Post 49 Post 48 ");
  EXPECT_EQ(frame_.shown, Strings());
  Key(Qt::Key_Return);
  EXPECT_EQ(frame_.shown, Strings{"Post 49"});
  list_.verticalScrollBar()->setValue(25);
  for (const int column : {int{kDateColumn}, int{kTitleColumn}}) {  // all dates are alike
    list_.header()->setSortIndicator(column, Qt::DescendingOrder);
    EXPECT_EQ(TopTitle() + Selected(), "Post 30Post 49 Post 48 ");
  }
  pane_.Refill(NumberedPosts(57));
  EXPECT_EQ(Title(0) + TopTitle() + Selected(), "Post 9Post 30Post 49 Post 48 ");
  list_.header()->setSortIndicator(-1, Qt::AscendingOrder);
  EXPECT_EQ(Title(list_.currentIndex().row()), "Post 49");
}

TEST_F(PlacedList, TheCurrentPostStaysOnItsLineWhenItIsSeen) {
  pane_.Show(25);
  ASSERT_EQ(TitleOnLine(5), "Post 25");
  list_.header()->setSortIndicator(kTitleColumn, Qt::AscendingOrder);
  EXPECT_EQ(TitleOnLine(5) + TitleOnLine(4), "Post 25Post 24");
}

TEST_F(PlacedList, PostsThatAreGoneLeaveTheOthersWhereTheyStood) {
  PostList fewer = NumberedPosts(50);
  std::erase_if(fewer.posts, [](const PostRow& post) {
    return post.id == 49 || post.id == 30 || post.id == 29;
  });
  pane_.Refill(std::move(fewer));
  EXPECT_EQ(Selected() + TitleOnLine(2), "Post 48 Post 28");
  EXPECT_FALSE(list_.currentIndex().isValid());
  list_.verticalScrollBar()->setValue(list_.verticalScrollBar()->maximum());
  const std::string top = TopTitle();
  pane_.Refill(NumberedPosts(500));
  EXPECT_EQ(TopTitle(), top);
  list_.header()->setSortIndicator(kTitleColumn, Qt::AscendingOrder);
  pane_.Fill(NumberedPosts(40));  // begins anew
  EXPECT_EQ(TopTitle() + Selected(), "Post 40");
  EXPECT_EQ(list_.header()->sortIndicatorSection(), -1);
  EXPECT_FALSE(list_.currentIndex().isValid());
}

}  // namespace
}  // namespace feedloom
