// The list while only unread posts are shown.
#include <QSignalSpy>

#include "ui/list/ListPaneFixture.h"

namespace feedloom {

struct UnreadOnlyTest : PostListPane {
  UnreadOnlyTest() {
    frame_.skin.SetHostValue(kValueEmptyList, kEmptyListLine);
    pause_.setInterval(0);
    Turn(true);
  }
  void Turn(bool isOn) {
    frame_.state.isUnreadOnly = isOn;
    pane_.FollowUnreadOnly();
  }
  // Posts of which those with an even number are read.
  PostList HalfRead(int newest) {
    PostList list = NumberedPosts(newest);
    for (PostRow& post : list.posts) post.readStatus = post.id % 2 == 0 ? 1 : 0;
    return list;
  }
  std::string RowsAfterAPause() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pause_.isActive(); }));
    return Rows();
  }

  QTimer& pause_ = *pane_.findChild<QTimer*>("userPause");
};

TEST_F(UnreadOnlyTest, APostThatIsReadStaysUntilAnotherIsChosen) {
  frame_.db.AddChannelWithPosts(1, "News", 8);
  pane_.Fill(HalfRead(7));
  EXPECT_EQ(Rows(), "Post 7 Post 5 Post 3 Post 1 ");
  Press(1);
  EXPECT_EQ(RowsAfterAPause(), "Post 7 >-Post 5 Post 3 Post 1 ");
  PostList newer = HalfRead(8);
  newer.posts[0].readStatus = 0;
  newer.posts[3].readStatus = 1;
  pane_.Refill(std::move(newer));
  EXPECT_EQ(Rows(), "Post 8 Post 7 >-Post 5 Post 3 Post 1 ");
  Press(3, Qt::ControlModifier);
  EXPECT_EQ(RowsAfterAPause(), "Post 8 Post 7 >-Post 5 >-Post 3 Post 1 ");
  list_.header()->setSortIndicator(kTitleColumn, Qt::AscendingOrder);
  Key(Qt::Key_N);
  EXPECT_EQ(RowsAfterAPause(), "Post 1 >-Post 7 Post 8 ");
  Turn(false);
  EXPECT_EQ(Rows(), "Post 1 -Post 2 -Post 3 -Post 4 -Post 5 -Post 6 >-Post 7 Post 8 ");
  list_.header()->setSortIndicator(-1, Qt::AscendingOrder);
  Turn(true);
  EXPECT_EQ(Rows(), "Post 8 >-Post 7 Post 1 ");
  EXPECT_EQ(pane_.Take().posts.size(), 8U) << "nothing is lost";
}

TEST_F(UnreadOnlyTest, WhatIsHiddenIsNotDeletedWithAllAndAnEmptyListTellsOfIt) {
  frame_.db.AddChannelWithPosts(1, "News", 5);
  pane_.Fill(HalfRead(5));
  pane_.Run(kCommandDeleteAll);
  EXPECT_EQ(CodePage::Korean().ToUtf8(frame_.askedMore), "숨겨져 있는 읽은 글 2개는 남습니다.");
  EXPECT_EQ(frame_.db.Value("select group_concat(post_title) from TB_POST"), "Post 2,Post 4");
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(list_.accessibleDescription(),
            "읽지 않은 글이 없습니다. 읽은 글 2개는 숨겨져 있습니다.");
  Turn(false);
  EXPECT_EQ(Rows(), "-Post 4 -Post 2 ");
  EXPECT_FALSE(pane_.SaysEmpty());
}

TEST_F(UnreadOnlyTest, ThePlaceAndWhatWasSearchedForAreShownReadOrNot) {
  pane_.Fill(HalfRead(4));
  pane_.RecallPlace({.current = 2});
  EXPECT_EQ(Rows(), "Post 3 >-Post 2 Post 1 ");
  PostList found = HalfRead(4);
  found.areSearchResults = true;
  pane_.Fill(std::move(found));
  Turn(true);
  EXPECT_EQ(Rows(), "-Post 4 Post 3 -Post 2 Post 1 ");
}

TEST_F(UnreadOnlyTest, ItsButtonTellsItsNameItsKeyAndItsState) {
  auto& unread = *bar_.findChildren<QAbstractButton*>().last();
  EXPECT_EQ(unread.toolTip(), "읽지 않은 글만 보기 (U)");
  EXPECT_TRUE(unread.isChecked() && unread.focusPolicy() == Qt::TabFocus);
  QSignalSpy wanted(&pane_, &CRSS_RightTopContainer::UnreadOnlyWanted);
  unread.setFocus();
  Key(Qt::Key_Space);
  EXPECT_EQ(wanted, QList({QVariantList{false}}));
}

}  // namespace feedloom
