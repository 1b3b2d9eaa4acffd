// The refresh of channels on threads, against a real server and a real database.
#include <fmt/core.h>
#include <gtest/gtest.h>

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
const std::map<unsigned, const char*> kWords = {{kMessageChannelWorker, "worker"},
                                                {kMessageChannelInserted, "inserted"},
                                                {kMessageChannelResult, "result"},
                                                {kNewPosts, "new"}};

class Refresh : public testing::Test {
 protected:
  Refresh() { Begin(); }

  // The program's next start.
  void Begin(const RefreshLimits& limits = {}) {
    engine_.emplace(kit_.Services(), frame_, host_, limits,
                    [this](int id, int count) { frame_.Send(kNewPosts, id, count); });
  }

  RefreshEntry Entry(int id, const std::string& path, const std::string& title = "") const {
    const std::string url = kit_.server.Url(path);
    return {.channelId = id, .folderId = 1, .title = title, .xmlLink = url, .htmlLink = ""};
  }

  static std::string Feed(int posts) { return NumberedRss("c", "http://l/", posts); }

  // Stores a channel, the first as channel 1, with the feed at `path` and queues it.
  void Queue(const std::string& path, int posts = 0) {
    if (posts > 0) kit_.server.Serve(path, Feed(posts));
    engine_->Enqueue(Entry(kit_.db.AddChannelWithPosts(1, path.substr(1), 0), path));
  }

  // Runs the queue to its end and returns what the frame was told, and the channels' states.
  std::string Run() {
    std::size_t told = frame_.All().size();
    std::string words;
    engine_->StartRefresh();
    ++runs_;
    EXPECT_TRUE(RunEnds());
    for (const auto all = frame_.All(); told < all.size(); ++told) {
      const auto& [message, wParam, lParam] = all[told];
      words += fmt::format("{}({},{}) ", kWords.at(message), wParam, lParam);
    }
    return words + kit_.db.Value("select group_concat(channel_state) from TB_CHANNEL");
  }

  // Waits for the end of as many runs as are counted.
  bool RunEnds() const {
    const auto isEnd = [](auto& sent) { return sent.message == kMessageRefreshEnded; };
    return host_.WaitFor(isEnd, 20s, runs_);
  }

  // Refreshes channel 1 once more.
  std::string Again(const std::string& path) {
    engine_->Enqueue(Entry(1, path));
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
  const std::string path = Korean("/한.xml");
  Queue(path);
  EXPECT_TRUE(engine_->IsChannelQueued(1));
  EXPECT_EQ(Run(), "worker(1,0) result(-2,1) result(1,0) -2");
  EXPECT_FALSE(engine_->IsChannelQueued(1));
  kit_.server.Serve("/opml", "<opml version='1.0'/>");
  EXPECT_EQ(Again("/opml"), "worker(1,0) result(-3,1) result(1,0) -3");
  kit_.server.BreakOff("/short", Feed(1));
  EXPECT_EQ(Again("/short"), "worker(1,0) result(-2,1) result(1,0) -2");
  EXPECT_EQ(Posts(), 0);
  kit_.server.Serve("/%ed%95%9c.xml",
                    "<rss version='2.0'><item><title>It&amp;amp;s '한글'</title><link>l1</link>"
                    "<pubDate>Tue, 10 Jun 2003 04:00:00 +0900</pubDate></item>"
                    "<item><title>undated</title><link>l2</link></item></rss>");
  EXPECT_EQ(Again(path), "worker(1,0) new(1,2) result(0,1) result(1,0) 0");
  kit_.db.Sql("delete from TB_POST where post_link = 'l2'; update TB_POST set post_readStatus = 1");
  EXPECT_EQ(Again(path), "worker(1,0) new(1,1) result(0,1) result(1,0) 0");
  EXPECT_EQ(Again(path), "worker(1,0) result(0,1) result(1,0) 0");
  EXPECT_EQ(kit_.db.Value("select group_concat(post_title||'|'||post_link||'|'||post_pubDate||'|'||"
                          "post_readStatus, '; ') from TB_POST"),
            Korean("It&s '한글'|l1|2003-06-10 13:00:00|1; undated|l2||0"));
  EXPECT_EQ(kit_.db.Value("select channel_title from TB_CHANNEL"), Korean("한.xml"));
  EXPECT_EQ(kit_.WorkFiles(), Names());
}

TEST_F(Refresh, InsertsAChannelWithoutAnId) {
  kit_.server.Serve("/new", NumberedRss("New", "http://l/", 2));
  kit_.server.Serve("/bare", "<rss version='2.0'/>");
  EXPECT_TRUE(engine_->Enqueue(Entry(-1, "/new")));
  EXPECT_FALSE(engine_->Enqueue(Entry(-1, "/new")));
  EXPECT_EQ(Run(), "inserted(1,1) new(1,2) result(0,1) result(1,0) 0");
  engine_->Enqueue(Entry(-1, "/new"));
  EXPECT_EQ(Run(), "result(0,1) result(1,0) 0") << "it was found in the store";
  engine_->Enqueue(Entry(-1, "/bare", "its entry's title"));
  EXPECT_EQ(Run(), "inserted(2,1) result(0,2) result(1,0) 0,0");
  engine_->Enqueue(Entry(-1, "/absent"));
  EXPECT_EQ(Run(), "result(-2,-4) result(1,0) 0,0");
  EXPECT_EQ(kit_.db.Value("select group_concat(channel_folderID||channel_title||channel_type) "
                          "from TB_CHANNEL"),
            "1Newrss,1its entry's titlerss");
}

TEST_F(Refresh, RunsFiveDownloadsAtOnceOnConnectionsThatAreKept) {
  kit_.server.KeepConnections();
  for (int i = 0; i < 15; ++i) {
    Queue(fmt::format("/{}", i), 1);
    if (i < 5) kit_.server.Hang(fmt::format("/{}", i));
  }
  engine_->StartRefresh();
  for (int i = 0; i < 5; ++i) ASSERT_TRUE(kit_.server.WaitForRequest(fmt::format("/{}", i)));
  EXPECT_EQ(kit_.server.Requests("/5"), 0);
  for (int i = 0; i < 5; ++i) kit_.server.Serve(fmt::format("/{}", i), Feed(1));
  Run();
  EXPECT_EQ(Posts(), 15);
  EXPECT_EQ(kit_.server.HighestConcurrency(), 5);
  EXPECT_LE(kit_.server.Connections(), 5);
}

TEST_F(Refresh, StoresLargePostsOneChannelAfterTheOther) {
  for (const char* path : {"/1", "/2", "/3", "/4"}) {
    // One large post, or many that are large together.
    const bool isOne = path[1] % 2 == 0;
    auto items = NumberedItems("http://l/", 20);
    for (SampleItem& item : items) item.description.assign(isOne ? 1 : 220u << 10, 'x');
    if (isOne) items.back().description.assign(300u << 10, 'x');
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
  kit_.server.Hang("/hang");
  Queue("/hang");
  EXPECT_EQ(Run(), "worker(1,0) worker(1,0) result(1,0) -2");
  EXPECT_FALSE(engine_->IsChannelQueued(1));
  kit_.db.Sql(
      "create trigger slow after insert on TB_POST begin select (with recursive n(i) as (select 1 "
      "union all select i + 1 from n where i < 200000) select count(*) from n); end");
  kit_.server.Serve("/slow", Feed(300));
  EXPECT_EQ(Again("/slow"), "worker(1,0) worker(1,0) result(1,0) 0") << "its document was there";
  engine_->Stop();
  EXPECT_TRUE(Posts() > 0 && Posts() < 300) << Posts();
  EXPECT_EQ(kit_.WorkFiles(), Names());
}

TEST_F(Refresh, TakesWhatIsQueuedDuringARun) {
  onMessage_ = [&](auto& sent) {
    if (sent.wParam == kRunEnded && runs_ == 1) engine_->Enqueue(Entry(2, "/b"));
  };
  engine_->StartRefresh();  // does nothing: the queue is empty
  kit_.server.Hang("/hang");
  Queue("/hang");
  engine_->StartRefresh();
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  EXPECT_FALSE(engine_->Enqueue(Entry(1, "/hang")));
  Queue("/b", 1);
  engine_->StartRefresh();
  ASSERT_TRUE(frame_.WaitFor(kMessageChannelResult, kChannelRefreshed, 2));
  kit_.server.Fail("/hang", 500);
  Run();
  Run();
  EXPECT_EQ(frame_.Count(kMessageChannelWorker), 3) << "one arrived while the run ended";
  EXPECT_EQ(host_.Count(kMessageRefreshBegan), 2);
}

TEST_F(Refresh, AStopWaitsForNoServerAndLeavesNothingBehind) {
  for (const char* name : {"Feedloom_tmp12.xml", "Feedloom_tmp.xml", "Feedloom_tmp", "tmp.xml"}) {
    kit_.folder.Write(name, "");
  }
  Begin();
  EXPECT_EQ(kit_.WorkFiles(), (Names{"Feedloom_tmp", "tmp.xml"})) << "what a crash left is swept";
  kit_.server.Hang("/hang");
  const std::ptrdiff_t threads = ThreadCount();
  for (int i = 0; i < 8; ++i) Queue("/hang");
  engine_->StartRefresh();
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang", 20s, 5));
  engine_->Stop();
  EXPECT_TRUE(ThreadCountComesTo(threads));
  EXPECT_EQ(kit_.WorkFiles().size(), 2u);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_state = 0"), 8);
  Queue("/hang");
  engine_->StartRefresh();
  engine_->Stop();
  EXPECT_EQ(frame_.All().back(), (SentMessage{kMessageChannelResult, kRunEnded, 0}));
  EXPECT_EQ(host_.All(),
            (std::vector<SentMessage>{{kMessageRefreshBegan, 0, 0}, {kMessageRefreshEnded, 0, 0}}));
}

TEST_F(Refresh, AWorkerStoppedInTheMiddleOfAMessageEndsItAndSaysNothingMore) {
  for (const auto patience : {20'000ms, 0ms}) {
    Begin({.patience = patience});
    ++runs_;
    std::latch inMessage(1);
    onMessage_ = [&](auto& sent) {
      if (sent.message != kNewPosts) return;
      inMessage.count_down();
      EXPECT_TRUE(RunEnds());  // as it does when Stop has begun
      EXPECT_EQ(Posts(), runs_);
    };
    Queue("/a", 1);
    engine_->StartRefresh();
    inMessage.wait();
    engine_->Stop();
    EXPECT_EQ(frame_.Count(kNewPosts), runs_);
    EXPECT_EQ(frame_.Count(kMessageChannelResult), runs_) << "the run's end";
  }
}

TEST_F(Refresh, DoesNotReadWhatIsNotNewUnlessPostsMayBeMissing) {
  const std::string date = "Sat, 21 Nov 2026 12:00:00 GMT";
  const auto serve = [&] { kit_.server.ServeVersion("/new", Feed(2), "\"v1\"", date); };
  serve();
  kit_.server.Redirect("/a", kit_.server.Url("/new"), 301);
  kit_.server.ServeVersion("/dated", Feed(2), "", date);
  kit_.db.Sql(
      "create trigger full before insert on TB_POST when new.post_title = 'Post 2' begin "
      "select raise(fail, 'disk full'); end");
  Queue("/a");
  EXPECT_EQ(Run(), "worker(1,0) new(1,1) result(0,1) result(1,0) 0");
  EXPECT_EQ(kit_.db.Reports(), Names{"disk full"});
  kit_.db.Sql("drop trigger full");
  EXPECT_EQ(Again("/a"), "worker(1,0) new(1,1) result(0,1) result(1,0) 0");
  StatementLog log;
  EXPECT_EQ(Again("/a"), "worker(1,0) result(0,1) result(1,0) 0");
  EXPECT_EQ(log.Take().size(), 2u) << "the store's channels, once a run, and the test's look";
  EXPECT_EQ(kit_.server.LastHeader("/new", "If-None-Match"), "\"v1\"");
  EXPECT_EQ(kit_.server.LastHeader("/new", "If-Modified-Since"), date);
  kit_.server.Fail("/new", 500);
  Begin();
  EXPECT_EQ(Again("/a"), "worker(1,0) result(-2,1) result(1,0) -2");
  serve();
  EXPECT_EQ(Again("/a"), "worker(1,0) result(0,1) result(1,0) 0") << "the failure's mark goes";
  EXPECT_EQ(kit_.server.Unchanged(), 2);
  for (const char* path : {"/a", "/dated"}) {
    kit_.db.Sql("delete from TB_POST");
    EXPECT_EQ(Again(path), "worker(1,0) new(1,2) result(0,1) result(1,0) 0");
    kit_.db.Sql("delete from TB_POST");
    engine_->EnqueueAll({Entry(1, path)});
    EXPECT_EQ(Run(), "worker(1,0) new(1,2) result(0,1) result(1,0) 0");
  }
  Again("/dated");
  EXPECT_EQ(kit_.server.Unchanged(), 3);
  kit_.db.Sql("delete from TB_POST");
  EXPECT_EQ(Again("/new"), "worker(1,0) new(1,2) result(0,1) result(1,0) 0") << "it has moved";
}

TEST_F(Refresh, LeavesABusyServerAloneAsLongAsItWants) {
  for (const auto& [status, retryAfter, wait] : {std::tuple(429, "120", 120s),
                                                 {503, "Fri, 31 Dec 2100 00:00:00 GMT", 86400s},
                                                 {503, "100000", 86400s},
                                                 {500, "120", 0s}}) {
    const std::string path = fmt::format("/busy{}", runs_);
    kit_.server.Busy(path, status, retryAfter);
    Queue(path);
    int requests = 0;
    for (const auto& [later, isAsked] :
         {std::pair(0s, 1), {0s, 0}, {wait - 5s, 0}, {10s, 1}, {-86410s, 1}}) {
      kit_.db.Clock().Advance(later);
      Begin();
      Again(path);
      EXPECT_EQ(kit_.server.Requests(path), requests += wait > 0s ? isAsked : 1) << retryAfter;
    }
  }
}

TEST_F(Refresh, NamesTheReaderAsTheUserWants) {
  Queue("/a", 1);
  for (const auto& [name, sent] :
       {std::pair("", "Feedloom/"), {"Mine/1", "Mine/1"}, {"two\nlines", "Feedloom/"}}) {
    const Registry registry(kit_.folder.File("registry.reg"));
    ASSERT_TRUE(registry.WriteString(kModuleKey, "UserAgent", name));
    Again("/a");
    EXPECT_TRUE(kit_.server.LastHeader("/a", "User-Agent").starts_with(sent)) << name;
  }
}

}  // namespace
}  // namespace feedloom
