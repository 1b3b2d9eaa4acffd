#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>
#include <algorithm>

#include "store/Cabinets.h"
#include "store/Posts.h"
#include "ui/FakeFrame.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/list/PostListModel.h"
#include "vxctrl/CVxListCtrl.h"

namespace feedloom {
namespace {

using Strings = std::vector<std::string>;
using ReadPosts = std::vector<std::pair<int, bool>>;

// Unread posts "Post <newest>" down to "Post 1" that are not in the store; the number is the id.
PostList NumberedPosts(int newest) {
  PostList list;
  for (int number = newest; number >= 1; --number) {
    PostRow& post = list.posts.emplace_back();
    post.id = number;
    post.published = "2008-05-01 10:00:00";
    post.title = "Post " + std::to_string(number);
    post.ownerTitle = "News";
  }
  return list;
}

// Shows a pane on a real store.
class PostListPane : public testing::Test {
 protected:
  PostListPane() {
    frame_.state.unreadTotal = 10;
    pane_.resize(540, 200);
    pane_.show();
  }

  // The posts of a new channel with `count` unread posts, newest first.
  PostList ChannelPosts(int count) {
    channel_ = frame_.db.AddChannelWithPosts(1, "News", count);
    ChannelWithPosts loaded;
    EXPECT_TRUE(LoadChannelWithPosts(frame_.TheStore(), channel_, loaded));
    return {std::move(loaded.posts), false};
  }

  void Press(Qt::MouseButton button, int row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(list_.viewport(), button, keys, list_.visualRect(Index(row)).center());
  }

  QModelIndex Index(int row) const { return list_.model()->index(row, 1); }
  std::string Title(int row) const { return Index(row).data().toString().toStdString(); }
  bool IsRead(int row) const { return Index(row).data(PostListModel::kIsReadRole).toBool(); }
  int UnreadStored() { return frame_.db.Count("TB_POST where post_readStatus = 0"); }
  std::string TopTitle() const {
    return list_.indexAt({0, 0}).siblingAtColumn(1).data().toString().toStdString();
  }

  Strings SelectedTitles() const {
    Strings titles;
    for (const QModelIndex& index : list_.selectionModel()->selectedRows(1)) {
      titles.push_back(index.data().toString().toStdString());
    }
    std::ranges::sort(titles);
    return titles;
  }

  FakeFrame frame_;
  CRSS_RightTopContainer pane_{frame_, nullptr};
  CVxListCtrl& list_ = *pane_.findChild<CVxListCtrl*>();
  int channel_ = 0;
};

TEST_F(PostListPane, HasTheGivenColumnsAndRowHeight) {
  pane_.Fill(ChannelPosts(2));
  for (const auto& [column, width] : {std::pair(0, 30), {1, 278}, {2, 100}, {3, 100}}) {
    EXPECT_EQ(list_.columnWidth(column), width);
  }
  EXPECT_EQ(list_.visualRect(Index(1)).top() - list_.visualRect(Index(0)).top(), 19);
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

TEST_F(PostListPane, WithoutARowTheMainPageIsShown) {
  pane_.Show(0);
  pane_.Fill(ChannelPosts(2));
  pane_.Show(-1);
  pane_.Show(2);
  EXPECT_EQ(frame_.shown, Strings(3, "(main page)"));
  EXPECT_EQ(UnreadStored(), 2);
}

TEST_F(PostListPane, EveryLeftClickCountsOnePostRead) {
  pane_.Fill(ChannelPosts(3));
  Press(Qt::LeftButton, 2);
  Press(Qt::LeftButton, 2);
  EXPECT_EQ(frame_.shown, (Strings{"Post 1", "Post 1"}));
  EXPECT_EQ(frame_.state.unreadTotal, 8);
  EXPECT_EQ(UnreadStored(), 2);
}

TEST_F(PostListPane, AClickActsWhenTheButtonGoesDown) {
  pane_.Fill(ChannelPosts(3));
  const QPoint point = list_.visualRect(Index(1)).center();
  QTest::mousePress(list_.viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(frame_.shown, Strings{"Post 2"});
  QTest::mouseRelease(list_.viewport(), Qt::LeftButton, {}, point);
  QTest::mouseDClick(list_.viewport(), Qt::LeftButton, {}, point);
  EXPECT_EQ(frame_.shown.size(), 1u);
  EXPECT_EQ(frame_.state.unreadTotal, 9) << "a double click is one click";
}

TEST_F(PostListPane, OtherButtonsOnlySelectAndTheEmptyAreaShowsNothing) {
  pane_.Fill(ChannelPosts(3));
  Press(Qt::RightButton, 1);
  EXPECT_EQ(SelectedTitles(), Strings{"Post 2"});
  Press(Qt::MiddleButton, 2);
  EXPECT_EQ(SelectedTitles(), Strings{"Post 1"});
  QTest::mouseClick(list_.viewport(), Qt::LeftButton, {}, {50, 150});
  EXPECT_EQ(frame_.shown, Strings());
  EXPECT_EQ(frame_.state.unreadTotal, 10);
  EXPECT_EQ(UnreadStored(), 3);
}

TEST_F(PostListPane, ClicksWithCtrlGatherASelection) {
  pane_.Fill(ChannelPosts(4));
  Press(Qt::LeftButton, 0);
  Press(Qt::LeftButton, 2, Qt::ControlModifier);
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 2", "Post 4"}));
  Press(Qt::LeftButton, 3);
  EXPECT_EQ(SelectedTitles(), Strings{"Post 1"});
}

TEST_F(PostListPane, EnterShowsTheCurrentPostWithoutCounting) {
  pane_.Fill(ChannelPosts(3));
  QTest::keyClick(&list_, Qt::Key_Return);
  EXPECT_EQ(frame_.shown, Strings()) << "there is no current row";
  pane_.Show(0);
  QTest::keyClick(&list_, Qt::Key_Down);
  EXPECT_EQ(frame_.shown, Strings{"Post 3"});
  QTest::keyClick(&list_, Qt::Key_Return);
  QTest::keyClick(&list_, Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(frame_.shown, (Strings{"Post 3", "Post 2", "Post 2"}));
  EXPECT_EQ(frame_.state.unreadTotal, 10);
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
  const int cabinet = AddCabinet(frame_.TheStore(), "c", 1);
  ASSERT_EQ(InsertScrapPost(frame_.TheStore(), cabinet, "kept", "l", "", ""), 1);
  CabinetWithPosts loaded;
  ASSERT_TRUE(LoadCabinetWithPosts(frame_.TheStore(), cabinet, loaded));
  pane_.Fill({std::move(loaded.posts), true});
  pane_.Show(0);
  EXPECT_EQ(frame_.shown, Strings{"kept"});
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  EXPECT_EQ(UnreadStored(), 1) << "the channel's post has the same id";
  EXPECT_EQ(frame_.read, (ReadPosts{{cabinet, true}}));
}

TEST_F(PostListPane, APostThatCannotBeMarkedIsShownAndStaysUnread) {
  pane_.Fill(ChannelPosts(2));
  {
    const ForeignLock lock(frame_.db.DbPath());
    pane_.Show(0);
  }
  EXPECT_EQ(frame_.shown, Strings{"Post 2"});
  EXPECT_FALSE(IsRead(0));
  EXPECT_EQ(frame_.read, ReadPosts());
  EXPECT_EQ(SelectedTitles(), Strings{"Post 2"});
}

TEST_F(PostListPane, AFillBeginsAtTheTopWithNothingSelected) {
  pane_.Fill(NumberedPosts(50));
  pane_.Show(49);
  EXPECT_NE(TopTitle(), "Post 50");
  pane_.Fill(NumberedPosts(40));
  EXPECT_EQ(TopTitle(), "Post 40");
  EXPECT_EQ(SelectedTitles(), Strings());
  EXPECT_FALSE(list_.currentIndex().isValid());
}

TEST_F(PostListPane, ShowsTwoHundredThousandPostsAtOnce) {
  PostList list = NumberedPosts(200'000);
  list.posts[0].title.assign(100'000, '\xFF');
  QElapsedTimer timer;
  timer.start();
  pane_.Fill(std::move(list));
  pane_.grab();
  const auto elapsed = timer.elapsed();
  RecordProperty("fill_and_first_paint_ms", std::to_string(elapsed));
  EXPECT_LT(elapsed, 2000) << "a tenth of a second is usual";
}

class Refilling : public PostListPane {
 protected:
  // Fifty posts, two of them selected, the list scrolled away from these.
  Refilling() {
    pane_.Fill(NumberedPosts(50));
    pane_.Show(2);
    Press(Qt::LeftButton, 1, Qt::ControlModifier);
    list_.verticalScrollBar()->setValue(20);
    frame_.shown.clear();
  }
};

TEST_F(Refilling, KeepsSelectionCurrentRowAndPlaceByPost) {
  pane_.Refill(NumberedPosts(55));
  EXPECT_EQ(list_.model()->rowCount(), 55);
  EXPECT_EQ(Title(0), "Post 55");
  EXPECT_EQ(TopTitle(), "Post 30");
  EXPECT_EQ(SelectedTitles(), (Strings{"Post 48", "Post 49"}));
  EXPECT_EQ(Title(list_.currentIndex().row()), "Post 49");
  EXPECT_EQ(frame_.shown, Strings());
  QTest::keyClick(&list_, Qt::Key_Return);
  EXPECT_EQ(frame_.shown, Strings{"Post 49"});
}

TEST_F(Refilling, KeepsThePlaceAtTheEndOfTheList) {
  list_.selectionModel()->clear();
  list_.verticalScrollBar()->setValue(list_.verticalScrollBar()->maximum());
  const std::string top = TopTitle();
  pane_.Refill(NumberedPosts(500));
  EXPECT_EQ(TopTitle(), top);
}

TEST_F(Refilling, PostsThatAreGoneLeaveTheOthersWhereTheyStood) {
  PostList fewer = NumberedPosts(50);
  std::erase_if(fewer.posts, [](const PostRow& post) {
    return post.id == 49 || post.id == 30 || post.id == 29;
  });
  pane_.Refill(std::move(fewer));
  EXPECT_EQ(SelectedTitles(), Strings{"Post 48"});
  EXPECT_FALSE(list_.currentIndex().isValid());
  EXPECT_EQ(list_.indexAt({0, 2 * CVxListCtrl::kRowHeight}).siblingAtColumn(1).data(), "Post 28");
}

TEST_F(Refilling, WithNothingLeftIsEmpty) {
  pane_.Refill({});
  EXPECT_EQ(list_.model()->rowCount(), 0);
  EXPECT_EQ(SelectedTitles(), Strings());
  pane_.Refill(NumberedPosts(50));
  EXPECT_EQ(TopTitle(), "Post 50");
}

}  // namespace
}  // namespace feedloom
