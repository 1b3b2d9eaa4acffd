// The frame: its panes, its start, and its messages.
#include <QSplitter>
#include <QTest>
#include <QTreeView>

#include "shell/ModuleFixture.h"
#include "skin/Keys.h"
#include "ui/tree/GroupTreeModel.h"

namespace feedloom {
namespace {

class MainFrame : public ModuleFixture {
 protected:
  QSplitter& Columns() { return *qobject_cast<QSplitter*>(frame_); }
  QSplitter& Rows() { return *qobject_cast<QSplitter*>(Columns().widget(1)); }

  void DragDivider(int toX) {
    QWidget* const handle = Columns().handle(1);
    const QPoint from = handle->rect().center();
    const QPoint to(toX - handle->x(), from.y());
    QTest::mousePress(handle, Qt::LeftButton, {}, from);
    QTest::mouseMove(handle, to);
    QTest::mouseRelease(handle, Qt::LeftButton, {}, to);
  }

  void StoreSetting(const std::string& name, const std::string& text) {
    EXPECT_TRUE(profile_.TheRegistry().WriteString(kModuleKey, name, text));
  }

  QModelIndex SampleChannel() { return Tree().model()->index(0, 0, Tree().model()->index(0, 0)); }
  bool IsNew() { return SampleChannel().data(GroupTreeModel::IsNewRole).toBool(); }
};

TEST_F(MainFrame, OpensWithItsSettledSizes) {
  CreateFrame();
  EXPECT_EQ(Columns().sizes()[0], 251);
  EXPECT_EQ(Rows().sizes()[0], 200);
}

TEST_F(MainFrame, TheDividerCannotMakeTheTreeNarrowerButWider) {
  CreateFrame();
  DragDivider(100);
  EXPECT_EQ(Columns().sizes()[0], 251);
  DragDivider(400);
  EXPECT_NEAR(Columns().sizes()[0], 400, 5);
}

TEST_F(MainFrame, ShowsTheTreeAndTheMainPageAtFirst) {
  CreateFrame();
  EXPECT_EQ(TreeLabels(),
            (QStringList{"기본 그룹", "  Feedloom 시작하기", "보관함", "  내 보관함"}));
  EXPECT_EQ(ListedTitles(), QStringList());
  EXPECT_TRUE(PageText().contains("Feedloom")) << PageText().toStdString();
}

TEST_F(MainFrame, DeletesOldPostsAtTheStartWhenTheSettingsSaySo) {
  AddPosts(1, 3);
  Sql("update TB_POST set post_createDate = datetime('now', '-8 days') where post_id < 3");
  StoreSetting("FeedDeleteDateStr", "7");
  StoreSetting("FeedDeleteModeStr", "1");
  CreateFrame();
  EXPECT_EQ(Value("select count(*) from TB_POST"), "3");
  Destroy();
  StoreSetting("FeedDeleteModeStr", "0");
  CreateFrame();
  EXPECT_EQ(Value("select count(*) from TB_POST"), "1");
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(1)");
}

TEST_F(MainFrame, ShowsPostsAsTheirWebPagesWhenTheSettingsSaySo) {
  server_.Serve("/story", "<html><body>The whole story</body></html>", "text/html");
  AddPosts(1, 1);
  Sql("update TB_POST set post_link = '" + server_.Url("/story") + "'");
  StoreSetting("PreviewModeStr", "1");
  CreateFrame();
  Select("Feedloom 시작하기(1)");
  EXPECT_EQ(NextPageText(), "The whole story");
}

TEST_F(MainFrame, AFeedCannotLeadToTheMachinesOwnFiles) {
  AddPosts(1, 1);
  Sql("update TB_POST set post_link = 'file:///etc/hostname'");
  StoreSetting("PreviewModeStr", "1");
  CreateFrame();
  Select("Feedloom 시작하기(1)");
  EXPECT_TRUE(NextPageText().contains("Text 1"));
}

TEST_F(MainFrame, SaysItsLastTextAgainWhenAsked) {
  CreateFrame();
  host_->texts.clear();
  Send(kMessageChannelResult, kDownloadFailed, 1);
  EXPECT_EQ(Send(kMessageShowTextAgain, 7, 8), 0);
  ASSERT_EQ(host_->texts.size(), 2u);
  EXPECT_EQ(host_->texts[0], host_->texts[1]);
  EXPECT_NE(host_->texts[0].find("Feedloom 시작하기"), std::string::npos) << host_->texts[0];
}

TEST_F(MainFrame, CountsWhatARefreshedChannelHasBrought) {
  CreateFrame();
  host_->texts.clear();
  AddPosts(1, 3);
  Send(kMessageChannelResult, kChannelRefreshed, 1);
  EXPECT_EQ(TreeLabels()[0], "기본 그룹(3)");
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(3)");
  EXPECT_TRUE(IsNew());
  ASSERT_EQ(host_->texts.size(), 1u);
  EXPECT_NE(host_->texts[0].find("Feedloom 시작하기"), std::string::npos) << host_->texts[0];
}

TEST_F(MainFrame, TheNewMarkGoesOutWhenARefreshBeginsAndWhenTheChannelIsSelected) {
  CreateFrame();
  Send(kMessageChannelWorker, 1, 1);
  EXPECT_TRUE(IsNew());
  Send(kMessageChannelWorker, 1, 0);
  EXPECT_FALSE(IsNew());
  Send(kMessageChannelWorker, 1, 1);
  Select("Feedloom 시작하기");
  EXPECT_FALSE(IsNew());
}

TEST_F(MainFrame, AChannelWhoseWorkerWasStoppedIsCountedToo) {
  CreateFrame();
  Send(kMessageChannelWorker, 1, 0);
  AddPosts(1, 3);
  Sql("update TB_CHANNEL set channel_state = -2");
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기");
  Send(kMessageChannelWorker, 1, 0);
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(3)");
  EXPECT_EQ(SampleChannel().data(GroupTreeModel::StateRole).toInt(), -2);
}

TEST_F(MainFrame, AChannelThatARefreshInsertedGetsItsRow) {
  CreateFrame();
  const int id = AddChannel("Fresh", "/fresh.xml");
  AddPosts(id, 2);
  Send(kMessageChannelInserted, id, 1);
  EXPECT_EQ(TreeLabels()[2], "  Fresh");
  Send(kMessageChannelResult, kChannelRefreshed, id);
  EXPECT_EQ(TreeLabels()[2], "  Fresh(2)");
  EXPECT_EQ(TreeLabels()[0], "기본 그룹(2)");
}

TEST_F(MainFrame, MessagesThatNameNothingKnownChangeNothing) {
  CreateFrame();
  const QStringList before = TreeLabels();
  for (const unsigned number : {0x500u, 0x506u, 0x508u, 0x7777u}) {
    EXPECT_EQ(Send(number, 4711, 4712), 0);
  }
  EXPECT_EQ(TreeLabels(), before);
}

TEST_F(MainFrame, SelectingAChannelListsItsPostsAndShowsTheFirst) {
  AddPosts(1, 2);
  CreateFrame();
  Select("Feedloom 시작하기(2)");
  EXPECT_EQ(ListedTitles(), (QStringList{"Post 1", "Post 2"}));
  EXPECT_TRUE(NextPageText().contains("Text 1"));
  EXPECT_EQ(TreeLabels()[1], "  Feedloom 시작하기(1)");
  EXPECT_EQ(Value("select post_title from TB_POST where post_readStatus = 1"), "Post 1");
  Select("내 보관함");
  EXPECT_EQ(ListedTitles(), QStringList());
  EXPECT_TRUE(NextPageText().contains("Feedloom"));
}

}  // namespace
}  // namespace feedloom
