// The refresh of channels on threads, against a real server and a real database.
#include <fmt/core.h>
#include <gtest/gtest.h>

#include <atomic>
#include <latch>

#include "ingest/IngestKit.h"
#include "ingest/RefreshEngine.h"
#include "ingest/ThreadCount.h"
#include "kit/FeedDocuments.h"
#include "platform/RegistryKeys.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;
using Names = std::vector<std::string>;

constexpr unsigned kNewPosts = 1;  // stands in the frame's record for a report of new posts
const std::map<unsigned, char> kLetters = {{kMessageChannelWorker, 'W'},
                                           {kMessageChannelInserted, 'I'},
                                           {kMessageChannelResult, 'R'},
                                           {kNewPosts, 'N'}};

class Refresh : public testing::Test {
 protected:
  Refresh() { Begin(); }

  // The program's next start.
  void Begin(const RefreshLimits& limits = {}) {
    engine_.emplace(kit_.Services(), frame_, host_, limits,
                    [this](int id, int count) { frame_.Send(kNewPosts, id, count); });
  }

  RefreshEntry Entry(int id, const std::string& path) const {
    const std::string url = kit_.server.Url(path);
    return {.channelId = id, .folderId = 1, .title = "its own", .xmlLink = url, .htmlLink = ""};
  }

  static std::string Feed(int posts) { return NumberedRss("c", "http://l/", posts); }

  // Stores a channel, the first as channel 1, with the feed at `path` and queues it.
  void Queue(const std::string& path) {
    engine_->Enqueue(Entry(kit_.db.AddChannelWithPosts(1, path.substr(1), 0), path));
  }

  // Begins to refresh `channels` channels whose server does not answer.
  void BeginToHang(int channels) {
    kit_.server.Hang("/hang");
    for (int i = 0; i < channels; ++i) Queue("/hang");
    engine_->StartRefresh();
    EXPECT_TRUE(kit_.server.WaitForRequest("/hang", 20s, std::min(channels, 5)));
  }

  // Runs the queue to its end. Says what the frame was told: a letter and the two parameters of
  // each message; and the channels' states.
  std::string Run() {
    std::size_t told = frame_.All().size();
    std::string said;
    engine_->StartRefresh();
    ++runs_;
    EXPECT_TRUE(RunEnds());
    for (const auto all = frame_.All(); told < all.size(); ++told) {
      const auto& [message, wParam, lParam] = all[told];
      said += fmt::format("{}{},{} ", kLetters.at(message), wParam, lParam);
    }
    return said + kit_.db.Value("select group_concat(channel_state) from TB_CHANNEL");
  }

  // Waits for the end of as many runs as are counted.
  bool RunEnds() const {
    const auto isEnd = [](auto& sent) { return sent.message == kMessageRefreshEnded; };
    return host_.WaitFor(isEnd, 20s, runs_);
  }

  // Runs `sql` and refreshes channel 1 from `path`.
  std::string Again(const std::string& path, const std::string& sql = "") {
    kit_.db.Sql(sql);
    engine_->EnqueueAll({Entry(1, path)});
    return Run();
  }

  int Posts() const { return kit_.db.Count("TB_POST"); }

  IngestKit kit_;
  std::function<void(const SentMessage&)> onMessage_ = [](auto&) {};
  RecordingTarget frame_{[this](auto& sent) { return onMessage_(sent), 0; }};
  RecordingTarget host_;
  std::optional<RefreshEngine> engine_;
  int runs_ = 0;
};

TEST_F(Refresh, StoresNewPostsAndMarksAFailure) {
  kit_.server.Serve("/opml", "<opml version='1.0'/>");
  kit_.server.BreakOff("/short", Feed(1));
  kit_.server.Serve("/%ed%95%9c.xml",
                    "<rss version='2.0'><item><title>It&amp;amp;s '한글'</title><link>l1</link>"
                    "<pubDate>Tue, 10 Jun 2003 04:00:00 +0900</pubDate></item>"
                    "<item><title>undated</title><link>l2</link></item></rss>");
  Queue("/opml");
  EXPECT_TRUE(engine_->IsChannelQueued(1));
  EXPECT_EQ(Run(), "W1,0 R-3,1 R1,0 -3");
  EXPECT_FALSE(engine_->IsChannelQueued(1));
  EXPECT_EQ(Again("/short"), "W1,0 R-2,1 R1,0 -2");
  EXPECT_EQ(Posts(), 0);
  const std::string path = Korean("/한.xml");
  const Registry registry(kit_.folder.File("registry.reg"));
  const auto agent = [&] { return kit_.server.LastHeader("/%ed%95%9c.xml", "User-Agent"); };
  ASSERT_TRUE(registry.WriteString(kModuleKey, "UserAgent", "two\nlines"));
  EXPECT_EQ(Again(path), "W1,0 N1,2 R0,1 R1,0 0");
  EXPECT_TRUE(agent().starts_with("Feedloom/"));
  ASSERT_TRUE(registry.WriteString(kModuleKey, "UserAgent", "Mine/1"));
  kit_.db.Sql("delete from TB_POST where post_link='l2'; update TB_POST set post_readStatus=1");
  EXPECT_EQ(Again(path), "W1,0 N1,1 R0,1 R1,0 0");
  EXPECT_EQ(agent(), "Mine/1") << "the user's name of the reader";
  EXPECT_EQ(
      kit_.db.Value("select group_concat(channel_title||'|'||post_title||'|'||post_link||'|'||"
                    "post_pubDate||'|'||post_readStatus, '; ') from TB_POST, TB_CHANNEL"),
      Korean("opml|It&s '한글'|l1|2003-06-10 13:00:00|1; opml|undated|l2||0"));
  EXPECT_EQ(kit_.WorkFiles(), Names{"registry.reg"});
}

TEST_F(Refresh, InsertsAChannelWithoutAnId) {
  kit_.server.Serve("/new", NumberedRss("New", "http://l/", 2));
  kit_.server.Serve("/bare", "<rss version='2.0'/>");
  for (const auto& [path, said] : {std::pair("/new", "I1,1 N1,2 R0,1 R1,0 0"),
                                   {"/new", "R0,1 R1,0 0"},
                                   {"/bare", "I2,1 R0,2 R1,0 0,0"},
                                   {"/absent", "R-2,-4 R1,0 0,0"}}) {
    EXPECT_TRUE(engine_->Enqueue(Entry(-1, path)));
    EXPECT_FALSE(engine_->Enqueue(Entry(-1, path)));
    EXPECT_EQ(Run(), said);
  }
  EXPECT_EQ(kit_.db.Value("select group_concat(channel_folderID||channel_title||channel_type) "
                          "from TB_CHANNEL"),
            "1Newrss,1its ownrss");
}

TEST_F(Refresh, RunsFiveDownloadsAtOnceOnConnectionsThatAreKept) {
  kit_.server.KeepConnections();
  kit_.server.Serve("/quick", Feed(1));
  BeginToHang(5);
  for (int i = 0; i < 10; ++i) Queue("/quick");
  EXPECT_EQ(kit_.server.Requests("/quick"), 0);
  kit_.server.Serve("/hang", Feed(1));
  Run();
  EXPECT_EQ(Posts(), 15);
  EXPECT_EQ(kit_.server.HighestConcurrency(), 5);
  EXPECT_LE(kit_.server.Connections(), 5);
}

TEST_F(Refresh, StoresLargePostsOneChannelAfterTheOther) {
  for (const std::string path : {"/one", "/one", "/together", "/together"}) {
    auto items = NumberedItems("http://l/", 20);
    for (SampleItem& item : items) item.description.assign(path == "/one" ? 1 : 220u << 10, 'x');
    if (path == "/one") items.back().description.assign(300u << 10, 'x');
    kit_.server.Serve(path, RssDocument("c", items));
    Queue(path);
  }
  Run();
  EXPECT_EQ(Posts(), 80);
  EXPECT_EQ(kit_.db.Count("TB_POST a join TB_POST b on b.post_id = a.post_id + 1 "
                          "where a.post_channelID <> b.post_channelID"),
            3);
}

TEST_F(Refresh, StopsAWorkerAtTheTimeLimitAndKeepsWhatItStored) {
  Begin({.timeLimit = 1s});
  kit_.server.Serve("/slow", Feed(300));
  BeginToHang(1);
  EXPECT_EQ(Run(), "W1,0 R1,0 -2");
  EXPECT_FALSE(engine_->IsChannelQueued(1));
  kit_.db.Sql(
      "create trigger slow after insert on TB_POST begin select (with recursive n(i) as (select 1 "
      "union all select i + 1 from n where i < 200000) select count(*) from n); end");
  EXPECT_EQ(Again("/slow"), "W1,0 W1,0 R1,0 0") << "its document was there";
  engine_->Stop();
  EXPECT_TRUE(Posts() > 0 && Posts() < 300) << Posts();
  EXPECT_EQ(kit_.WorkFiles(), Names());
}

TEST_F(Refresh, TakesWhatIsQueuedDuringARun) {
  std::atomic<bool> isFirst = true;
  onMessage_ = [&](const SentMessage& sent) {
    const bool isEnd = sent == SentMessage{kMessageChannelResult, kRunEnded, 0};
    if (isEnd && isFirst.exchange(false)) engine_->Enqueue(Entry(2, "/b"));
  };
  kit_.server.Serve("/b", Feed(1));
  BeginToHang(1);
  EXPECT_FALSE(engine_->Enqueue(Entry(1, "/hang")));
  Queue("/b");
  engine_->StartRefresh();
  ASSERT_TRUE(frame_.WaitFor(kMessageChannelResult, kChannelRefreshed, 2));
  kit_.server.Fail("/hang", 500);
  Run();
  Run();
  EXPECT_EQ(frame_.Count(kMessageChannelWorker), 3) << "one arrived while the run ended";
  EXPECT_EQ(host_.Count(kMessageRefreshBegan), 2);
  engine_->Stop();
}

TEST_F(Refresh, AStopWaitsForNoServerAndLeavesNothingBehind) {
  for (const char* name : {"Feedloom_tmp", "tmp.xml", "Feedloom_tmp12.xml", "Feedloom_tmp.xml"}) {
    kit_.folder.Write(name, "");
  }
  Begin();
  EXPECT_EQ(kit_.WorkFiles(), (Names{"Feedloom_tmp", "tmp.xml"})) << "what a crash left is swept";
  engine_->StartRefresh();  // does nothing: the queue is empty
  const std::ptrdiff_t threads = ThreadCount();
  BeginToHang(8);
  engine_->Stop();
  EXPECT_TRUE(ThreadCountComesTo(threads));
  EXPECT_EQ(kit_.WorkFiles().size(), 2u);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_state = 0"), 8);
  Queue("/hang");
  engine_->StartRefresh();  // does nothing any more
  engine_->Stop();
  EXPECT_EQ(frame_.All().back(), (SentMessage{kMessageChannelResult, kRunEnded, 0}));
  const SentMessage began{kMessageRefreshBegan}, ended{kMessageRefreshEnded};
  EXPECT_EQ(host_.All(), (std::vector<SentMessage>{began, ended}));
}

TEST_F(Refresh, AWorkerStoppedInTheMiddleOfAMessageEndsItAndSaysNothingMore) {
  kit_.server.Serve("/a", Feed(1));
  const std::ptrdiff_t threads = ThreadCount();
  for (const auto timeout : {20'000ms, 0ms}) {
    Begin({.stopTimeout = timeout});
    ++runs_;
    std::latch inMessage(1);
    onMessage_ = [&](auto& sent) {
      if (sent.message != kNewPosts) return;
      inMessage.count_down();
      EXPECT_TRUE(RunEnds());  // as it does when Stop has begun
      EXPECT_EQ(Posts(), runs_);
    };
    Queue("/a");
    engine_->StartRefresh();
    inMessage.wait();
    engine_->Stop();
    EXPECT_EQ(frame_.Count(kNewPosts), runs_);
    EXPECT_EQ(frame_.Count(kMessageChannelResult), runs_) << "the run's end";
    EXPECT_TRUE(ThreadCountComesTo(threads));
  }
}

TEST_F(Refresh, DoesNotReadWhatIsNotNewUnlessPostsMayBeMissing) {
  const std::string date = "Sat, 21 Nov 2026 12:00:00 GMT";
  const std::string failed = "update TB_CHANNEL set channel_state = -2";
  kit_.server.ServeVersion("/new", Feed(2), "\"v1\"", date);
  kit_.server.ServeVersion("/dated", Feed(2), "", date);
  kit_.server.Redirect("/a", kit_.server.Url("/new"), 301);
  kit_.db.Sql(
      "create trigger full before insert on TB_POST when new.post_title = 'Post 2' begin "
      "select raise(fail, 'disk full'); end");
  Queue("/a");
  EXPECT_EQ(Run(), "W1,0 N1,1 R0,1 R1,0 0");
  EXPECT_EQ(kit_.db.Reports(), Names{"disk full"});
  EXPECT_EQ(Again("/a", "drop trigger full;" + failed), "W1,0 N1,1 R0,1 R1,0 0");
  StatementLog log;
  EXPECT_EQ(Again("/a"), "W1,0 R0,1 R1,0 0");
  EXPECT_EQ(log.Take().size(), 2u) << "the store's channels, once a run, and the test's look";
  EXPECT_EQ(kit_.server.LastHeader("/new", "If-None-Match"), "\"v1\"");
  EXPECT_EQ(kit_.server.LastHeader("/new", "If-Modified-Since"), date);
  Begin();
  EXPECT_EQ(Again("/a", failed), "W1,0 R0,1 R1,0 0") << "an earlier failure's mark goes";
  EXPECT_EQ(kit_.server.Unchanged(), 2);
  for (const char* path : {"/a", "/a", "/dated"}) {
    EXPECT_EQ(Again(path, "delete from TB_POST"), "W1,0 N1,2 R0,1 R1,0 0") << path;
  }
  EXPECT_EQ(Again("/dated"), "W1,0 R0,1 R1,0 0");
  EXPECT_EQ(kit_.server.Unchanged(), 3);
  kit_.db.Sql("delete from TB_POST");
  engine_->Enqueue(Entry(1, "/dated"));
  EXPECT_EQ(Run(), "W1,0 N1,2 R0,1 R1,0 0");
}

TEST_F(Refresh, LeavesABusyServerAloneAsLongAsItWants) {
  Queue("/a");
  for (const auto& [status, retryAfter, wait] : {std::tuple(429, "120", 120s),
                                                 {503, "Fri, 31 Dec 2100 00:00:00 GMT", 86400s},
                                                 {503, "100000", 86400s},
                                                 {500, "120", 0s}}) {
    const std::string path = fmt::format("/{}", runs_);
    kit_.server.Busy(path, status, retryAfter);
    for (const auto& [later, isAsked] :
         {std::pair(90000s, 1), {0s, 0}, {wait - 5s, 0}, {10s, 1}, {-86410s, 1}}) {
      const int requests = kit_.server.Requests(path);
      kit_.db.Clock().Advance(later);
      Begin();
      Again(path);
      EXPECT_EQ(kit_.server.Requests(path) - requests, wait > 0s ? isAsked : 1) << retryAfter;
    }
  }
}

}  // namespace
}  // namespace feedloom
