// A refresh, from the feed's server to what is on screen.
#include <QElapsedTimer>
#include <QTreeView>
#include <algorithm>

#include "kit/FeedDocuments.h"
#include "shell/ModuleFixture.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

using RefreshInTheWindow = ModuleFixture;

TEST_F(RefreshInTheWindow, GoesFromTheServerToRowsLabelsListAndPage) {
  server_.Serve("/news.xml", NumberedRss("News", "http://example.com/", 3));
  const int id = AddChannel("News", "/news.xml");
  CreateFrame();
  Select("News");
  EXPECT_EQ(ListedTitles(), QStringList());

  EXPECT_EQ(Send(kMessageRefreshAll), 0);
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_EQ(host_->windowMessages,
            (std::vector<unsigned>{kMessageRefreshBegan, kMessageRefreshEnded}));
  EXPECT_EQ(Value("select count(*) from TB_POST where post_channelID = " + std::to_string(id)),
            "3");
  EXPECT_TRUE(TreeLabels().contains("  News(3)")) << TreeLabels().join('|').toStdString();
  EXPECT_EQ(ListedTitles(), (QStringList{"Post 1", "Post 2", "Post 3"}));

  Select("News(3)");
  EXPECT_TRUE(NextPageText().contains("Text 1"));
}

TEST_F(RefreshInTheWindow, ShowsTheWaitCursorAsLongAsItRuns) {
  server_.Hang("/slow.xml");
  AddChannel("Slow", "/slow.xml");
  CreateFrame();
  Send(kMessageRefreshAll);
  ASSERT_TRUE(WaitUntil([this] { return frame_->cursor().shape() == Qt::WaitCursor; }));
  server_.Serve("/slow.xml", NumberedRss("Slow", "http://example.com/", 1));
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_NE(frame_->cursor().shape(), Qt::WaitCursor);
}

TEST_F(RefreshInTheWindow, NamesTheChannelThatFailed) {
  AddChannel("Gone", "/gone.xml");
  Sql("delete from TB_CHANNEL where channel_id = 1");
  CreateFrame();
  host_->texts.clear();
  Send(kMessageRefreshAll);
  ASSERT_TRUE(WaitForRunEnd());
  ASSERT_EQ(host_->texts.size(), 1u);
  EXPECT_NE(host_->texts[0].find("Gone"), std::string::npos);
}

TEST_F(RefreshInTheWindow, ALockedDatabaseIsToldHoldsNothingUpAndIsCaughtUpWithAfterwards) {
  server_.Serve("/news.xml", NumberedRss("News", "http://example.com/", 3));
  AddChannel("News", "/news.xml");
  CreateFrame();
  host_->texts.clear();
  {
    const ForeignLock lock(profile_.Paths().database);
    Send(kMessageRefreshAll);
    ASSERT_TRUE(WaitForRunEnd());
    EXPECT_GT(std::ranges::count(host_->texts, "database is locked"), 0);
    QElapsedTimer elapsed;
    elapsed.start();
    Select("News");
    EXPECT_LT(elapsed.elapsed(), 2000);
    EXPECT_EQ(ListedTitles(), QStringList());
  }
  host_->windowMessages.clear();
  Send(kMessageRefreshAll);
  ASSERT_TRUE(WaitForRunEnd());
  EXPECT_TRUE(TreeLabels().contains("  News(3)")) << TreeLabels().join('|').toStdString();
  EXPECT_EQ(ListedTitles().size(), 3);
}

}  // namespace
}  // namespace feedloom
