// Rows on the screen: how they look, clicks, keys, sorting and refilling.
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

using PostListPaneTest = PostListPane;
using ReadPosts = std::vector<std::pair<int, bool>>;

TEST_F(PostListPaneTest, LiesBelowTheToolbarInTheFrameAndAReadPostLooksDifferent) {
  PostList list = ChannelPosts(2);
  list.posts[1].title = list.posts[0].title;
  list.posts[1].readStatus = 1;
  pane_.Fill(std::move(list));
  EXPECT_EQ(bar_.geometry(), QRect(6, 0, 548, 40));
  EXPECT_EQ(list_.geometry(), QRect(6, 41, 548, 193));
  EXPECT_EQ(list_.frameWidth(), 0);
  const QImage picture = pane_.grab().toImage();
  EXPECT_EQ(picture.pixelColor(300, 40), QColor(0x76, 0x8A, 0x8E)) << "the line above the list";
  EXPECT_NE(picture.pixelColor(1, 20), picture.pixelColor(1, 100)) << "the corner and the edge";
  EXPECT_EQ(list_.visualRect(Index(1)), QRect(30, 19, 278, 19));
  EXPECT_EQ(list_.columnWidth(kDateColumn) + list_.columnWidth(kOwnerColumn), 200);
  EXPECT_EQ(list_.accessibleName(), "글 목록");
  const auto cell = [&](int x, int row) { return picture.copy(6 + x, 61 + 19 * row, 29, 17); };
  QImage blank = cell(0, 0);
  blank.fill(list_.palette().color(QPalette::Base));
  EXPECT_TRUE(cell(0, 0) != blank && cell(0, 1) != blank && cell(0, 0) != cell(0, 1));
  EXPECT_NE(cell(32, 0), cell(32, 1));
}

TEST_F(PostListPaneTest, AShownPostIsSelectedAndMarkedReadOnceWhereItIsStored) {
  pane_.Fill(ChannelPosts(3));
  for (int i = 0; i < 2; ++i) pane_.Show(1);
  frame_.state.listMode = ListMode::WebDirectory;
  pane_.Show(0);
  EXPECT_EQ(Rows(), ">Post 3 >(Post 2) Post 1 ");
  EXPECT_EQ(UnreadStored(), "Post 1,Post 3");
  frame_.state.listMode = ListMode::Today;
  pane_.Show(0);
  pane_.Fill(CabinetPosts());
  pane_.Show(1);
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  EXPECT_EQ(UnreadStored(), "Post 1") << "the channel's post has the same id";
  pane_.Fill(ChannelPosts(1));
  RefuseInStore("update on TB_POST");
  pane_.Show(0);
  EXPECT_EQ(Rows(), ">Post 1 ");
  EXPECT_EQ(frame_.read,
            (ReadPosts{{channel_ - 1, false}, {channel_ - 1, false}, {cabinet_, true}}));
  EXPECT_EQ(frame_.shown, (Strings{"Post 2", "Post 2", "Post 3", "Post 3", "kept 1", "Post 1"}));
  EXPECT_EQ(frame_.state.unreadTotal, 10);
}

TEST_F(PostListPaneTest, TheFirstPostShownIsTheOneAskedForOrTheFirst) {
  PostList list = ChannelPosts(3);
  list.posts[0].readStatus = 1;
  pane_.Fill(list);
  using enum FirstShown;
  for (const auto first : {First, LastUnread, FirstUnread, LastUnread}) pane_.ShowFirst(first);
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Post 1", "Post 2", "Post 3"}));
  pane_.Fill({});
  for (const auto first : {First, LastUnread}) pane_.ShowFirst(first);
  EXPECT_TRUE(frame_.shown.size() == 6 && frame_.shown.back() == "(main page)");
}

TEST_F(PostListPaneTest, EveryLeftPressShowsAPostAndOtherButtonsOnlySelect) {
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

TEST_F(PostListPaneTest, KeysShowTheCurrentPostTheUnreadOnesAndLeadToTheSearchBox) {
  PostList list = ChannelPosts(6);
  for (PostRow& post : list.posts) post.title = "n " + post.title;  // what a view would seek
  list.posts[2].readStatus = list.posts[3].readStatus = 1;
  pane_.Fill(std::move(list));
  using enum Qt::Key;
  for (const auto key : {Key_Return, Key_N, Key_Down, Key_Return, Key_N, Key_Enter}) Key(key);
  EXPECT_EQ(frame_.shown, (Strings{"n Post 6", "n Post 5", "n Post 2", "n Post 2"}));
  for (int i = 0; i < 2; ++i) Key(Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Selected(), "n Post 2 n Post 1 ") << "from where N has led";
  for (const auto key : {Key_P, Key_N}) Key(key);
  EXPECT_EQ(frame_.unreadRowsAsked, (std::vector{false, true}));
  Key(Key_A, Qt::ControlModifier);
  EXPECT_EQ(list_.SelectedRows().size(), 6U);
  scope_.setCurrentIndex(static_cast<int>(SearchScope::Local));
  Key(Key_F, Qt::ControlModifier);
  for (const auto key : {Key_X, Key_N, Key_Delete, Key_Return}) Key(key);
  EXPECT_TRUE(frame_.lists.at(0).posts.empty() && frame_.questions.empty()) << "none has an xn";
  Key(Key_Escape);
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(PostListPaneTest, HeadingsSortUpDownAndNotAtAllByClicksAndKeys) {
  PostList list = NumberedPosts(3);
  list.posts[1].title = "A title";
  pane_.Fill(std::move(list));
  QHeaderView& header = *list_.header();
  Key(Qt::Key_Up, Qt::AltModifier);
  Key(Qt::Key_Right);
  for (const bool byKey : {true, false}) {
    for (const auto& [name, rows] : {std::pair("제목, 오름차순", "A title Post 1 Post 3 "),
                                     {"제목, 내림차순", "Post 3 Post 1 A title "},
                                     {"제목", "Post 3 A title Post 1 "}}) {
      byKey ? Key(Qt::Key_Space)
            : QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, {80, 5});
      EXPECT_EQ(Rows(), rows);
      EXPECT_EQ(header.accessibleName(), name);
    }
  }
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(list_.columnWidth(kTitleColumn), 288);
  Key(Qt::Key_Down);
  EXPECT_TRUE(list_.hasFocus());
}

TEST_F(PostListPaneTest, SortingAndRefillingKeepSelectionCurrentRowOrderAndPlaceByPost) {
  const auto onLine = [&](int line) {
    return Title(list_.indexAt({0, line * CVxListCtrl::kRowHeight}).row()) + " ";
  };
  QScrollBar& bar = *list_.verticalScrollBar();
  QHeaderView& header = *list_.header();
  pane_.Fill(NumberedPosts(50));
  pane_.Show(2);
  Press(Qt::LeftButton, 0, Qt::ControlModifier);
  bar.setValue(20);
  pane_.Refill(NumberedPosts(55));
  EXPECT_EQ(Title(0) + " " + onLine(0) + Selected(), "Post 55 Post 30 Post 50 Post 48 ");
  EXPECT_EQ(Title(list_.currentIndex().row()), "Post 50");
  EXPECT_EQ(frame_.shown.size(), 2U);
  for (const int column : {int{kDateColumn}, int{kTitleColumn}}) {  // all dates are alike
    header.setSortIndicator(column, Qt::DescendingOrder);
    EXPECT_EQ(onLine(0) + Selected(), "Post 30 Post 50 Post 48 ");
  }
  PostList other = NumberedPosts(57);
  std::erase_if(other.posts, [](const PostRow& post) { return post.id == 50 || post.id == 30; });
  pane_.Refill(std::move(other));
  EXPECT_EQ(Title(0) + " " + onLine(1) + Selected(), "Post 9 Post 3 Post 48 ");
  EXPECT_FALSE(list_.currentIndex().isValid());
  header.setSortIndicator(-1, Qt::AscendingOrder);
  bar.setValue(20);
  pane_.Show(25);
  const std::string fifth = onLine(5);
  header.setSortIndicator(kTitleColumn, Qt::AscendingOrder);
  EXPECT_EQ(onLine(5), fifth) << "the current post, when it is seen";
  list_.selectionModel()->clear();
  bar.setValue(bar.maximum());
  const std::string top = onLine(0);
  pane_.Refill(NumberedPosts(500));
  EXPECT_EQ(onLine(0), top);
  pane_.Show(0);
  pane_.Fill(NumberedPosts(40));  // begins anew
  EXPECT_EQ(onLine(0) + Selected(), "Post 40 ");
  EXPECT_EQ(header.sortIndicatorSection(), -1);
  EXPECT_FALSE(list_.currentIndex().isValid());
}

}  // namespace
}  // namespace feedloom
