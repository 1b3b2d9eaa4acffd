// The tree while only unread posts are shown.

#include "ui/tree/LeftPaneFixture.h"

namespace feedloom {

struct UnreadOnlyTest : LeftPaneFixture {
  UnreadOnlyTest() {
    frame.skin.SetHostValue(kValueSelection, kSelectionCareful);
    frame.db.Sql("update TB_POST set post_readStatus = 1 where post_channelID = " +
                 std::to_string(weekly));
    Open();
    tree->findChild<QTimer*>("userPause")->setInterval(0);
    Turn(true);
  }
  void Turn(bool isOn) {
    frame.state.isUnreadOnly = isOn;
    pane->ShowUnreadOnly(isOn);
  }
  std::string RowsAfterAPause() {
    auto& pause = *tree->findChild<QTimer*>("userPause");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !pause.isActive(); }));
    return Rows();
  }
};

TEST_F(UnreadOnlyTest, ARowGoesWhenItIsReadAndLeftAndComesBackWithAnUnreadPost) {
  EXPECT_EQ(Rows(), "News(2) Daily(2) 보관함(1) Keep(1) Later");
  Click(PlaceOf("Daily"));
  pane->SetChannelUnread(daily, 0);
  EXPECT_EQ(RowsAfterAPause(), "News [Daily] 보관함(1) Keep(1) Later");
  Click(tree->viewport()->rect().bottomLeft());  // beside all rows
  EXPECT_EQ(RowsAfterAPause(), "News [Daily] 보관함(1) Keep(1) Later");
  pane->SetChannelUnread(weekly, 1);
  EXPECT_EQ(Rows(), "News(1) [Daily] Weekly(1) 보관함(1) Keep(1) Later");
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}) Press(key);
  EXPECT_EQ(RowsAfterAPause(), "News(1) [Weekly(1)] 보관함(1) Keep(1) Later");
  ChannelRow added{{.id = 77, .folderId = sports, .title = "Ball"}, 0};
  pane->AppendChannel(added);
  EXPECT_EQ(Rows(), "News(1) [Weekly(1)] 보관함(1) Keep(1) Later");
  pane->SetChannelUnread(77, 2);
  EXPECT_EQ(Rows(), "News(1) [Weekly(1)] Sports(2) Ball(2) 보관함(1) Keep(1) Later");
  pane->Select({RowKind::Channel, daily});
  EXPECT_EQ(RowsAfterAPause(),
            "News(1) [Daily] Weekly(1) Sports(2) Ball(2) 보관함(1) Keep(1) Later");
  EXPECT_EQ(pane->Subscriptions().size(), 2U) << "nothing but the view changes";
  pane->UpdateTree(ReadTree(store).value());
  EXPECT_EQ(RowsAfterAPause(), "News(2) [Daily(2)] 보관함(1) Keep(1) Later");
  pane->ShowTree(ReadTree(store).value());
  EXPECT_EQ(Rows(), "News(2) Daily(2) 보관함(1) Keep(1) Later");
  Turn(false);
  EXPECT_EQ(Rows(), "News(2) Daily(2) Weekly Sports 보관함(1) Keep(1) Later");
}

TEST_F(UnreadOnlyTest, WhatIsHiddenIsCountedInAQuestionAndNotSelectedBehindADeletion) {
  frame.nextAnswer = MsgBoxAnswer::Consented;
  frame.db.AddChannelWithPosts(news, "Yearly", 1);
  pane->ShowTree(ReadTree(store).value());
  Choose("News", kCommandMarkAllUnread);
  EXPECT_EQ(frame.questions.back(), kTextMarkUnread);
  EXPECT_TRUE(CodePage::Korean().ToUtf8(frame.askedMore).find("채널 1개와$읽은 글 1개도") !=
              std::string::npos);
  frame.db.Sql("update TB_POST set post_readStatus = 1 where post_channelID = " +
               std::to_string(weekly));
  pane->RecountUnread(false);
  Click(PlaceOf("Daily"));
  EXPECT_EQ(RowsAfterAPause(), "News(3) [Daily(2)] Yearly(1) 보관함(1) Keep(1) Later");
  pane->Run(kCommandMoveDown);
  EXPECT_EQ(RowsAfterAPause(), "News(3) Yearly(1) [Daily(2)] 보관함(1) Keep(1) Later");
  std::unique_ptr<QMenu> menu(OpenMenu("Yearly"));
  for (const auto* const action : menu->actions())
    EXPECT_FALSE(action->isEnabled() && action->data() == kCommandMoveUp)
        << "above it stands only a hidden row";
  menu.reset();
  Choose("Daily", kCommandDeleteChild);
  EXPECT_EQ(frame.askedMore, "") << "all of its posts are unread";
  EXPECT_EQ(RowsAfterAPause(), "News(1) [Yearly(1)] 보관함(1) Keep(1) Later");
  Choose("News", kCommandDeleteGroup);
  EXPECT_TRUE(CodePage::Korean().ToUtf8(frame.askedMore).find("1개도 포함") != std::string::npos);
}

}  // namespace feedloom
