// The refresh of many channels on threads, against a real server and a real database.
#include <fmt/core.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "ingest/IngestKit.h"
#include "ingest/RefreshEngine.h"
#include "ingest/ThreadCount.h"
#include "kit/FeedDocuments.h"
#include "platform/RegistryKeys.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

class Refresh : public testing::Test {
 protected:
  void Begin(const RefreshLimits& limits = {}) {
    engine_.emplace(kit_.Services(), frame_, host_, limits);
  }

  // Stores a channel whose feed lies at `path` of the server, and queues it.
  int Queue(const std::string& path, int folderId = 1) {
    const int id = kit_.db.AddChannelWithPosts(folderId, path.substr(1), 0);
    QueueAgain(id, path);
    return id;
  }

  void QueueAgain(int id, const std::string& path) {
    RefreshEntry entry;
    entry.channelId = id;
    entry.folderId = 1;
    entry.title = path;
    entry.xmlLink = kit_.server.Url(path);
    engine_->Enqueue(entry);
  }

  int ServeAndQueue(const std::string& path, int items) {
    kit_.server.Serve(path, NumberedRss("Title of " + path, "http://l" + path + "/", items));
    return Queue(path);
  }

  // Runs the queue to its end.
  void RunToEnd() {
    engine_->StartRefresh();
    ASSERT_TRUE(
        host_.WaitFor([](const SentMessage& sent) { return sent.message == kMessageRefreshEnded; },
                      20s, ++runs_));
  }

  bool FrameGot(unsigned message, std::intptr_t wParam, std::intptr_t lParam) const {
    return frame_.Count([&](const SentMessage& sent) {
      return sent == SentMessage{message, wParam, lParam};
    }) > 0;
  }

  std::string State(int id) {
    return kit_.db.Value(
        fmt::format("select channel_state from TB_CHANNEL where channel_id = {}", id));
  }

  // Refreshes a channel once more and returns how many requests its server got for it.
  int RequestsOfAnotherRun(int id, const std::string& path) {
    const int before = kit_.server.Requests(path);
    QueueAgain(id, path);
    RunToEnd();
    return kit_.server.Requests(path) - before;
  }

  // The same as the program's next start.
  int RequestsAfterAnotherStart(int id, const std::string& path) {
    engine_->Stop();
    Begin();
    return RequestsOfAnotherRun(id, path);
  }

  IngestKit kit_;
  RecordingTarget frame_;
  RecordingTarget host_;
  std::optional<RefreshEngine> engine_;
  int runs_ = 0;
};

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

TEST_F(Refresh, AServerThatHasNothingNewIsNotReadAndTheStoreIsLeftAlone) {
  Begin();
  const std::string date = "Sat, 21 Nov 2026 12:00:00 GMT";
  kit_.server.ServeVersion("/a", NumberedRss("c", "http://l/", 2), "\"v1\"", date);
  kit_.server.ServeVersion("/dated", NumberedRss("c", "http://m/", 2), "", date);
  const int id = Queue("/a");
  const int dated = Queue("/dated");
  RunToEnd();
  StatementLog log;
  QueueAgain(id, "/a");
  QueueAgain(dated, "/dated");
  RunToEnd();
  EXPECT_EQ(log.Take().size(), 1u);  // what the store holds, once a run
  EXPECT_EQ(kit_.server.Unchanged(), 2);
  EXPECT_EQ(kit_.server.LastHeader("/a", "If-None-Match"), "\"v1\"");
  EXPECT_EQ(kit_.server.LastHeader("/a", "If-Modified-Since"), date);
  EXPECT_EQ(frame_.Count([](const SentMessage& sent) {
    return sent.message == kMessageChannelResult && sent.wParam == kChannelRefreshed;
  }),
            4);
  RequestsAfterAnotherStart(id, "/a");
  EXPECT_EQ(kit_.server.Unchanged(), 3);
}

TEST_F(Refresh, AFeedThatMovedIsFollowedEachTimeAndKeepsItsAddress) {
  Begin();
  constexpr int kMovedPermanently = 301;
  kit_.server.Redirect("/old", kit_.server.Url("/new"), kMovedPermanently);
  kit_.server.ServeVersion("/new", NumberedRss("c", "http://l/", 1), "\"v1\"");
  const int id = Queue("/old");
  kit_.db.Sql("update TB_CHANNEL set channel_xmllink = '" + kit_.server.Url("/old") + "'");
  RunToEnd();
  EXPECT_EQ(RequestsOfAnotherRun(id, "/old"), 1);
  EXPECT_EQ(kit_.server.Unchanged(), 1);
  EXPECT_EQ(kit_.db.Value("select channel_xmllink from TB_CHANNEL"), kit_.server.Url("/old"));
}

TEST_F(Refresh, TheMarkOfAFailureGoesWhenTheServerHasNothingNew) {
  Begin();
  kit_.server.ServeVersion("/a", NumberedRss("c", "http://l/", 1), "\"v1\"");
  const int id = Queue("/a");
  RunToEnd();
  kit_.server.Fail("/a", 500);
  RequestsOfAnotherRun(id, "/a");
  EXPECT_EQ(State(id), "-2");
  kit_.server.ServeVersion("/a", NumberedRss("c", "http://l/", 1), "\"v1\"");
  RequestsOfAnotherRun(id, "/a");
  EXPECT_EQ(kit_.server.Unchanged(), 1);
  EXPECT_EQ(State(id), "0");
}

TEST_F(Refresh, AsksForTheWholeDocumentWhenItsPostsMayBeMissing) {
  Begin();
  const auto asksForAll = [this](int id, const std::string& path) {
    RequestsOfAnotherRun(id, path);
    return kit_.server.LastHeader(path, "If-None-Match").empty();
  };
  kit_.db.Sql(
      "create trigger full before insert on TB_POST when new.post_title = 'Post 2' begin "
      "select raise(fail, 'disk full'); end");
  kit_.server.ServeVersion("/a", NumberedRss("c", "http://l/", 2), "\"v1\"");
  const int id = Queue("/a");
  RunToEnd();
  ASSERT_EQ(kit_.db.Reports(), std::vector<std::string>{"disk full"});
  kit_.db.Sql("drop trigger full");
  EXPECT_TRUE(asksForAll(id, "/a")) << "a post could not be stored";
  EXPECT_EQ(kit_.db.Count("TB_POST"), 2);
  EXPECT_FALSE(asksForAll(id, "/a"));
  kit_.db.Sql("delete from TB_POST");
  EXPECT_TRUE(asksForAll(id, "/a")) << "the channel holds no posts";
  EXPECT_EQ(kit_.db.Count("TB_POST"), 2);
  kit_.server.ServeVersion("/moved", NumberedRss("c", "http://l/", 3), "\"v1\"");
  EXPECT_TRUE(asksForAll(id, "/moved")) << "another address";
  EXPECT_EQ(kit_.db.Count("TB_POST"), 3);
}

TEST_F(Refresh, ABusyServerIsLeftAloneAsLongAsItWants) {
  for (const auto& [status, retryAfter, longest] :
       {std::tuple(429, "120", 120s), std::tuple(503, "Fri, 31 Dec 2100 00:00:00 GMT", 86400s),
        std::tuple(503, "100000", 86400s)}) {
    Begin();
    const std::string path = fmt::format("/busy{}", runs_);
    kit_.server.Busy(path, status, retryAfter);
    const int id = Queue(path);
    RunToEnd();
    EXPECT_EQ(RequestsOfAnotherRun(id, path), 0) << retryAfter;
    EXPECT_EQ(State(id), "-2");
    kit_.db.Clock().Advance(longest - 5s);
    EXPECT_EQ(RequestsAfterAnotherStart(id, path), 0) << retryAfter;
    kit_.db.Clock().Advance(10s);
    kit_.server.Serve(path, NumberedRss("c", "http://l/", 1));
    EXPECT_EQ(RequestsOfAnotherRun(id, path), 1) << retryAfter;
    EXPECT_EQ(State(id), "0");
    engine_->Stop();
  }
  Begin();
  kit_.server.Busy("/broken", 500, "120");
  const int id = Queue("/broken");
  RunToEnd();
  EXPECT_EQ(RequestsOfAnotherRun(id, "/broken"), 1);
}

TEST_F(Refresh, ARunKeepsItsConnections) {
  kit_.server.KeepConnections();
  Begin();
  for (int i = 0; i < 30; ++i) ServeAndQueue(fmt::format("/{}", i), 1);
  RunToEnd();
  EXPECT_EQ(kit_.db.Count("TB_POST"), 30);
  EXPECT_LE(kit_.server.Connections(), 5);
}

TEST_F(Refresh, NamesItselfAsTheUserWants) {
  Begin();
  const int id = ServeAndQueue("/a", 1);
  const Registry registry(kit_.folder.File("registry.reg"));
  RunToEnd();
  EXPECT_TRUE(kit_.server.LastHeader("/a", "User-Agent").starts_with("Feedloom/"));
  for (const auto& [value, expected] :
       {std::pair("Reader of mine/1", "Reader of mine/1"), std::pair("two\nlines", "Feedloom/")}) {
    ASSERT_TRUE(registry.WriteString(kModuleKey, "UserAgent", value));
    RequestsOfAnotherRun(id, "/a");
    EXPECT_TRUE(kit_.server.LastHeader("/a", "User-Agent").starts_with(expected)) << value;
  }
}

TEST(LargeDocumentsTest, AreReadOneAfterTheOther) {
  LargeDocuments place;
  LargeDocuments::Turn first(place);
  ASSERT_TRUE(first.Take({}));
  EXPECT_TRUE(first.Take({}));
  std::atomic<bool> isIn = false;
  std::jthread second([&](std::stop_token stop) {
    LargeDocuments::Turn turn(place);
    isIn = turn.Take(stop);
  });
  std::jthread third([&](std::stop_token stop) {
    LargeDocuments::Turn turn(place);
    EXPECT_FALSE(turn.Take(stop));
  });
  third.request_stop();
  third.join();
  EXPECT_FALSE(isIn);
  first.LetGo();
  second.join();
  EXPECT_TRUE(isIn);
}

}  // namespace
}  // namespace feedloom
