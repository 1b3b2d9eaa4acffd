// The refresh of many channels on threads, against a real server and a real database.
#include <gtest/gtest.h>

#include "ingest/RefreshFixture.h"
#include "ingest/ThreadCount.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

TEST_F(Refresh, StoresNewPostsAndReportsInOrder) {
  Begin();
  const int id = ServeAndQueue("/a", 3);
  EXPECT_TRUE(engine_->IsChannelQueued(id));
  RunToEnd();
  EXPECT_FALSE(engine_->IsChannelQueued(id));
  EXPECT_EQ(kit_.db.Count("TB_POST where post_readStatus = 0"), 3);
  EXPECT_EQ(State(id), "0");
  EXPECT_EQ(frame_.All(), (std::vector<SentMessage>{{kMessageChannelWorker, id, 0},
                                                    {kMessageChannelResult, kChannelRefreshed, id},
                                                    {kMessageChannelResult, kRunEnded, 0}}));
  EXPECT_EQ(host_.All(),
            (std::vector<SentMessage>{{kMessageRefreshBegan, 0, 0}, {kMessageRefreshEnded, 0, 0}}));
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Refresh, DatesAndTextsReachTheRows) {
  Begin();
  kit_.server.Serve("/a",
                    "<rss version='2.0'><channel><title>c</title><item><title>It&amp;amp;s "
                    "'한글'</title><link>http://l/</link><description>d</description><pubDate>Tue, "
                    "10 Jun 2003 04:00:00 +0900</pubDate></item><item><title>no date</title>"
                    "<link>l2</link></item></channel></rss>");
  Queue("/a");
  RunToEnd();
  EXPECT_EQ(kit_.db.Value("select post_title from TB_POST where post_link = 'http://l/'"),
            Korean("It&s '한글'"));
  EXPECT_EQ(kit_.db.Value("select post_pubDate from TB_POST where post_link = 'http://l/'"),
            "2003-06-10 13:00:00");
  EXPECT_EQ(kit_.db.Value("select post_pubDate from TB_POST where post_link = 'l2'"), "");
}

TEST_F(Refresh, ASecondRunStoresOnlyWhatIsNew) {
  Begin();
  const int id = ServeAndQueue("/a", 3);
  RunToEnd();
  kit_.db.Sql("update TB_POST set post_readStatus = 1");
  kit_.server.Serve("/a", NumberedRss("c", "http://l/a/", 4));
  QueueAgain(id, "/a");
  RunToEnd();
  EXPECT_EQ(kit_.db.Count("TB_POST"), 4);
  EXPECT_EQ(kit_.db.Count("TB_POST where post_readStatus = 0"), 1);
}

TEST_F(Refresh, AFailedChannelIsMarkedAndOtherwiseUntouched) {
  Begin();
  const int missing = Queue("/missing");
  kit_.server.Serve("/opml", "<opml version='1.0'/>");
  const int opml = Queue("/opml");
  kit_.server.Serve("/html", "<html>");
  const int html = Queue("/html");
  kit_.server.BreakOff("/short", NumberedRss("c", "http://l/", 1));
  const int broken = Queue("/short");
  RunToEnd();
  EXPECT_TRUE(FrameGot(kMessageChannelResult, kDownloadFailed, missing));
  EXPECT_TRUE(FrameGot(kMessageChannelResult, kDocumentRefused, opml));
  EXPECT_TRUE(FrameGot(kMessageChannelResult, kDocumentRefused, html));
  EXPECT_TRUE(FrameGot(kMessageChannelResult, kDownloadFailed, broken));
  EXPECT_EQ(State(missing), "-2");
  EXPECT_EQ(State(opml), "-3");
  EXPECT_EQ(kit_.db.Count("TB_POST"), 0);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_title = 'missing'"), 1);
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Refresh, AChannelWithoutAnIdIsInsertedWithItsPosts) {
  Begin();
  kit_.server.Serve("/new", NumberedRss("New channel", "http://l/", 2));
  RefreshEntry entry;
  entry.folderId = 4;
  entry.xmlLink = kit_.server.Url("/new");
  EXPECT_TRUE(engine_->Enqueue(entry));
  EXPECT_FALSE(engine_->Enqueue(entry));
  RunToEnd();
  EXPECT_TRUE(engine_->Enqueue(entry));  // found in the store this time
  RunToEnd();
  const int id = std::stoi(kit_.db.Value("select channel_id from TB_CHANNEL"));
  EXPECT_TRUE(FrameGot(kMessageChannelInserted, id, 1));
  EXPECT_EQ(frame_.Count(kMessageChannelInserted), 1);
  EXPECT_TRUE(FrameGot(kMessageChannelResult, kChannelRefreshed, id));
  EXPECT_EQ(frame_.Count(kMessageChannelWorker), 0);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_title = 'New channel' and channel_folderID = 4 "
                          "and channel_type = 'rss' and channel_state = 0"),
            1);
  EXPECT_EQ(kit_.db.Count(fmt::format("TB_POST where post_channelID = {}", id)), 2);
}

TEST_F(Refresh, AnAddressInTheCodePageIsSentAsUtf8) {
  Begin();
  kit_.server.Serve("/%ed%95%9c.xml", NumberedRss("c", "http://l/", 1));
  Queue(Korean("/한.xml"));
  RunToEnd();
  EXPECT_EQ(kit_.db.Count("TB_POST"), 1);
}

TEST_F(Refresh, ASuccessClearsTheMarkOfAnEarlierFailureAndKeepsTheTitle) {
  Begin();
  const int id = ServeAndQueue("/a", 1);
  kit_.db.Sql("update TB_CHANNEL set channel_state = -2");
  RunToEnd();
  EXPECT_EQ(State(id), "0");
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_title = 'a'"), 1);
}

TEST_F(Refresh, NeverRunsMoreThanFiveDownloadsAndTheSixthTakesAFreedPlace) {
  Begin();
  for (int i = 0; i < 5; ++i) {
    kit_.server.Hang(fmt::format("/hang{}", i));
    Queue(fmt::format("/hang{}", i));
  }
  for (int i = 0; i < 10; ++i) ServeAndQueue(fmt::format("/quick{}", i), 1);
  engine_->StartRefresh();
  for (int i = 0; i < 5; ++i) {
    ASSERT_TRUE(kit_.server.WaitForRequest(fmt::format("/hang{}", i)));
  }
  EXPECT_EQ(kit_.server.Requests("/quick0"), 0);
  for (int i = 0; i < 5; ++i) {
    kit_.server.Serve(fmt::format("/hang{}", i), NumberedRss("c", "http://l/", 1));
  }
  ASSERT_TRUE(frame_.WaitFor(kMessageChannelResult, kRunEnded, 0));
  EXPECT_EQ(frame_.Count([](const SentMessage& sent) {
    return sent.message == kMessageChannelResult && sent.wParam == kChannelRefreshed;
  }),
            15);
  EXPECT_EQ(kit_.server.HighestConcurrency(), 5);
}

TEST_F(Refresh, AServerThatNeverAnswersIsStoppedAfterTheTimeLimit) {
  Begin({.timeLimit = 100ms});
  kit_.server.Hang("/hang");
  const int id = Queue("/hang");
  RunToEnd();
  EXPECT_EQ(frame_.All(), (std::vector<SentMessage>{{kMessageChannelWorker, id, 0},
                                                    {kMessageChannelWorker, id, 0},
                                                    {kMessageChannelResult, kRunEnded, 0}}));
  EXPECT_EQ(State(id), "-2");
  EXPECT_FALSE(engine_->IsChannelQueued(id));
  engine_->Stop();
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Refresh, AWorkerStoppedWhileItStoresHasNotFailedAndKeepsWhatItStored) {
  Begin({.timeLimit = 1s});
  const int id = ServeAndQueue("/slow", 300);
  kit_.db.Sql("update TB_CHANNEL set channel_state = -3");
  kit_.db.Sql(
      "create trigger slow after insert on TB_POST begin select (with recursive n(i) as (select 1 "
      "union all select i + 1 from n where i < 200000) select count(*) from n); end");
  RunToEnd();
  engine_->Stop();
  EXPECT_EQ(frame_.All(), (std::vector<SentMessage>{{kMessageChannelWorker, id, 0},
                                                    {kMessageChannelWorker, id, 0},
                                                    {kMessageChannelResult, kRunEnded, 0}}));
  EXPECT_EQ(State(id), "0");
  EXPECT_GT(kit_.db.Count("TB_POST"), 0);
  EXPECT_LT(kit_.db.Count("TB_POST"), 300);
}

TEST_F(Refresh, ASecondStartDuringARunOnlyAddsToIt) {
  Begin();
  kit_.server.Hang("/hang");
  const int hanging = Queue("/hang");
  engine_->StartRefresh();
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  const int added = ServeAndQueue("/b", 1);
  RefreshEntry again;
  again.channelId = hanging;
  EXPECT_FALSE(engine_->Enqueue(again));
  engine_->StartRefresh();
  ASSERT_TRUE(frame_.WaitFor(kMessageChannelResult, kChannelRefreshed, added));
  EXPECT_EQ(host_.Count(kMessageRefreshBegan), 1);
  kit_.server.Fail("/hang", 500);
  ASSERT_TRUE(host_.WaitFor(kMessageRefreshEnded, 0, 0));
  EXPECT_EQ(host_.Count(kMessageRefreshBegan), 1);
}

TEST_F(Refresh, AnEntryThatArrivesWhileTheRunEndsIsNotForgotten) {
  RefreshEngine* engine = nullptr;
  int late = 0;
  RecordingTarget frame([&](const SentMessage& sent) {
    if (sent.wParam == kRunEnded && late != 0) {
      RefreshEntry entry;
      entry.channelId = std::exchange(late, 0);
      entry.xmlLink = kit_.server.Url("/a");
      engine->Enqueue(entry);
    }
    return 0;
  });
  kit_.server.Serve("/a", NumberedRss("c", "http://l/", 1));
  late = kit_.db.AddChannelWithPosts(1, "late", 0);
  const int id = late;
  RefreshEngine owner(kit_.Services(), frame, host_);
  engine = &owner;
  RefreshEntry first;
  first.channelId = kit_.db.AddChannelWithPosts(1, "first", 0);
  first.xmlLink = kit_.server.Url("/a");
  owner.Enqueue(first);
  owner.StartRefresh();
  EXPECT_TRUE(frame.WaitFor(kMessageChannelResult, kChannelRefreshed, id));
}

TEST_F(Refresh, StoppingInTheMiddleIsQuickAndLeavesNothingBehind) {
  Begin();
  ServeAndQueue("/a", 2);
  RunToEnd();
  engine_->Stop();
  Begin();
  const std::ptrdiff_t threadsBefore = ThreadCount();  // the server's among them
  for (int i = 0; i < 8; ++i) {
    kit_.server.Hang(fmt::format("/hang{}", i));
    Queue(fmt::format("/hang{}", i));
  }
  engine_->StartRefresh();
  for (int i = 0; i < 5; ++i) {
    ASSERT_TRUE(kit_.server.WaitForRequest(fmt::format("/hang{}", i)));
  }
  const auto begin = std::chrono::steady_clock::now();
  engine_->Stop();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 1s);
  EXPECT_TRUE(ThreadCountComesTo(threadsBefore));
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
  EXPECT_EQ(kit_.db.Count("TB_POST"), 2);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_state < 0"), 0);
  EXPECT_TRUE(FrameGot(kMessageChannelResult, kRunEnded, 0));
  EXPECT_EQ(host_.Count(kMessageRefreshEnded), 2);
}

TEST_F(Refresh, StoppingAtAnyMomentKeepsTheDatabaseWhole) {
  for (int round = 0; round < 10; ++round) {
    RecordingTarget frame;
    RefreshEngine engine(kit_.Services(), frame, host_);
    for (int i = 0; i < 6; ++i) {
      const std::string path = fmt::format("/r{}-{}", round, i);
      kit_.server.Serve(path, NumberedRss("c", "http://l" + path, 30));
      RefreshEntry entry;
      entry.channelId = kit_.db.AddChannelWithPosts(1, path.substr(1), 0);
      entry.xmlLink = kit_.server.Url(path);
      engine.Enqueue(entry);
    }
    engine.StartRefresh();
    ASSERT_TRUE(
        frame.WaitFor([](const SentMessage& sent) { return sent.message == kMessageChannelResult; },
                      20s, round % 4));
    const int reported = frame.Count([](const SentMessage& sent) {
      return sent.message == kMessageChannelResult && sent.wParam == kChannelRefreshed;
    });
    engine.Stop();
    EXPECT_GE(kit_.db.Count(fmt::format("TB_POST where post_link like 'http://l/r{}-%'", round)),
              30 * reported);
  }
  EXPECT_EQ(kit_.db.Value("pragma integrity_check"), "ok");
  EXPECT_EQ(kit_.db.Reports(), std::vector<std::string>());
}

TEST_F(Refresh, FilesOfACrashAreSweptAtTheStart) {
  kit_.folder.Write("Feedloom_tmp12.xml", "left over");
  kit_.folder.Write("Feedloom_tmp.xml", "left over");
  kit_.folder.Write("notes.xml", "the user's");
  Begin();
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>{"notes.xml"});
}

TEST_F(Refresh, ADatabaseThatFailsIsReportedAndTheRunStillEnds) {
  Begin();
  ServeAndQueue("/a", 2);
  kit_.db.Sql("drop table TB_POST");
  RunToEnd();
  EXPECT_EQ(kit_.db.Reports(),
            (std::vector<std::string>{"no such table: TB_POST", "no such table: TB_POST"}));
}

TEST_F(Refresh, AnEmptyQueueStartsNothing) {
  Begin();
  engine_->StartRefresh();
  engine_->Stop();
  EXPECT_TRUE(host_.All().empty());
}

}  // namespace
}  // namespace feedloom
