// The refresh of channels.
#include <fmt/core.h>

#include <latch>

#include "files/RegistryKeys.h"
#include "kit/FeedDocuments.h"
#include "kit/ThreadRefusal.h"
#include "refresh/RefreshEngine.h"
#include "refresh/RefreshKit.h"

namespace feedloom {

using namespace std::chrono_literals;
using Names = std::vector<std::string>;

constexpr unsigned kNewPosts = 1;  // stands in the frame's record for a report of new posts
const std::map<unsigned, char> kLetters = {{kMessageChannelWorker, 'W'},
                                           {kMessageChannelInserted, 'I'},
                                           {kMessageChannelResult, 'R'},
                                           {kNewPosts, 'N'}};

struct Refresh : testing::Test {
  Refresh() { Begin(); }

  // The program's next start.
  void Begin(const RefreshLimits& limits = {}) {
    engine_.emplace(kit_.Services(), frame_, host_, limits,
                    [this](int id, int stored, int missing) {
                      frame_.Send(kNewPosts, id, stored + 1000 * missing);
                    });
  }

  Channel Entry(int id, const std::string& path) const {
    const std::string url = kit_.server.Url(path);
    return {.id = id, .folderId = 1, .title = "its own", .xmlLink = url};
  }

  // Stores a channel, the first as channel 1, with the feed at `path` and queues it.
  void Queue(const std::string& path) {
    engine_->Enqueue({Entry(kit_.db.AddChannelWithPosts(1, path.substr(1), 0), path)});
  }

  // Begins to refresh `channels` channels whose server does not answer.
  void BeginToHang(int channels) {
    kit_.server.Hang("/hang");
    for (int i = 0; i < channels; ++i) Queue("/hang");
    engine_->StartRefresh();
    EXPECT_TRUE(kit_.server.WaitForRequest("/hang", 20s, std::min(channels, 5)));
  }

  // Lets the time limit of all workers run out.
  void RunOut() {
    kit_.db.Clock().Set(kit_.db.Clock().Now() + RefreshLimits().timeLimit);
    engine_->Enqueue({});  // wakes the monitor
  }

  // Runs the queue to its end. Says what the frame was told: a letter and the two parameters of
  // each message; and the channels' states.
  std::string Run(const std::function<void()>& meanwhile = [] {}) {
    std::size_t told = frame_.All().size();
    std::string said;
    engine_->StartRefresh();
    meanwhile();
    RunEnds();
    for (const auto all = frame_.All(); told < all.size(); ++told) {
      const auto& [message, wParam, lParam] = all[told];
      said += fmt::format("{}{},{} ", kLetters.at(message), wParam, lParam);
    }
    return said + kit_.db.Value("select group_concat(channel_state) from TB_CHANNEL");
  }

  // Waits for the end of a further run.
  void RunEnds() { EXPECT_TRUE(host_.WaitFor(kMessageRefreshEnded, ++runs_)); }

  // Runs `sql` and refreshes channel 1 from `path`.
  std::string Again(const std::string& path, const std::string& sql = "") {
    kit_.db.Sql(sql);
    engine_->Enqueue({Entry(1, path)});
    return Run();
  }

  int Posts() const { return kit_.db.Count("TB_POST"); }

  RefreshKit kit_;
  std::function<void(const SentMessage&)> onMessage_ = [](auto&) {};
  RecordingTarget frame_{[this](auto& sent) { return onMessage_(sent), 0; }};
  RecordingTarget host_;
  std::optional<RefreshEngine> engine_;
  int runs_ = 0;
};

TEST_F(Refresh, OfAJsonFeedStoresItsPostsWithTheirAuthorsAndCategories) {
  kit_.isLenient = true;
  Begin();
  kit_.db.AddTables({"post_details.sql"});
  kit_.server.Serve("/a", R"({"version":"https://jsonfeed.org/version/1","items":[{"url":"/l",)"
                          R"("content_text":"<a>","author":{"name":"O'Hara"},"tags":["x","y"]}]})");
  Queue("/a");
  EXPECT_EQ(Run(), "W1,0 N1,1 R0,1 R1,0 0");
  EXPECT_EQ(kit_.db.Value("select post_title || '|' || post_link || '|' || post_desc || '|' || "
                          "post_detail_authors || '|' || post_detail_categories from TB_POST join "
                          "TB_POST_DETAIL on post_id = post_detail_postID"),
            "<a>|" + kit_.server.Url("/l") + "|&#x3C;a&#x3E;|O'Hara|x\ny");
}

TEST_F(Refresh, StoresNewPostsAndMarksAFailure) {
  kit_.server.Serve("/opml", "<opml version='1.0'/>");
  kit_.server.BreakOff("/short", NumberedRss("c", "http://l/", 1));
  kit_.server.Serve("/a",
                    "<rss version='2.0'><item><title>It&amp;amp;s '한글'</title>"
                    "<link>l1</link><pubDate>Tue, 10 Jun 2003 04:00:00 +0900</pubDate></item>"
                    "<item><title>undated</title><link>l2</link></item></rss>");
  Queue("/opml");
  EXPECT_TRUE(engine_->IsChannelQueued(1));
  EXPECT_EQ(Run(), "W1,0 R-3,1 R1,0 -3");
  EXPECT_FALSE(engine_->IsChannelQueued(1));
  EXPECT_EQ(Again("/short"), "W1,0 R-2,1 R1,0 -2");
  EXPECT_EQ(Again("/a"), "W1,0 N1,2 R0,1 R1,0 0");
  EXPECT_TRUE(kit_.server.LastHeader("/a", "User-Agent").starts_with("Feedloom/"));
  ASSERT_TRUE(kit_.Services()->registry.WriteString(kModuleKey, "UserAgent", "Mine/1"));
  kit_.db.Sql("delete from TB_POST where post_link='l2'; update TB_POST set post_readStatus=1");
  EXPECT_EQ(Again("/a"), "W1,0 N1,1 R0,1 R1,0 0");
  EXPECT_EQ(kit_.server.LastHeader("/a", "User-Agent"), "Mine/1");
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
    engine_->Enqueue({Entry(-1, path), Entry(-1, path)});
    EXPECT_EQ(Run(), said);
  }
  EXPECT_EQ(kit_.db.Value("select group_concat(channel_folderID||channel_title||channel_type) "
                          "from TB_CHANNEL"),
            "1Newrss,1its ownrss");
}

TEST_F(Refresh, RunsFiveDownloadsAtOnceAndStoresLargePostsOneChannelAfterTheOther) {
  onMessage_ = [&](auto& sent) {
    const bool isEnd = sent == SentMessage{kMessageChannelResult, kRunEnded, 0};
    if (isEnd && host_.Count(kMessageRefreshEnded) == 0) engine_->Enqueue({Entry(1, "/quick")});
  };
  auto items = NumberedItems("http://l/", 20);
  items.back().description.assign(300u << 10, 'x');
  kit_.server.KeepConnections();
  kit_.server.Serve("/quick", NumberedRss("c", "http://l/", 1));
  BeginToHang(5);
  for (int i = 0; i < 10; ++i) Queue("/quick");
  engine_->Enqueue({Entry(1, "/hang")});
  engine_->StartRefresh();  // does nothing: a run is under way
  EXPECT_EQ(kit_.server.Requests("/quick"), 0);
  kit_.server.Serve("/hang", RssDocument("c", items));
  RunEnds();
  RunEnds();
  EXPECT_EQ(kit_.server.Requests("/quick"), 11) << "one was queued while the run ended";
  EXPECT_EQ(kit_.server.HighestConcurrency(), 5);
  EXPECT_LE(kit_.server.Connections(), 5 + 1);
  EXPECT_EQ(Posts(), 5 * 20 + 10);
  EXPECT_EQ(kit_.db.Value("select sum(other) from (select post_channelID <> lag(post_channelID) "
                          "over (order by post_id) other from TB_POST where post_channelID <= 5)"),
            "4");
}

TEST_F(Refresh, StopsAWorkerAtTheTimeLimitAndKeepsWhatItStored) {
  kit_.server.Serve("/slow", NumberedRss("c", "http://l/", 300));
  BeginToHang(1);
  EXPECT_EQ(Run([&] { RunOut(); }), "W1,0 R1,0 -2");
  engine_->Enqueue({Entry(-1, "/hang")});
  const auto runOutAtServer = [&] {
    EXPECT_TRUE(kit_.server.WaitForRequest("/hang", 20s, 2));
    RunOut();
  };
  EXPECT_EQ(Run(runOutAtServer), "W-1,0 R1,0 -2") << "one without an id is told, too";
  EXPECT_FALSE(engine_->IsChannelQueued(1));
  kit_.db.Sql(
      "create trigger slow after insert on TB_POST begin select (with recursive n(i) as (select 1 "
      "union all select i + 1 from n where i < 60000) select count(*) from n); end");
  for (const bool byUser : {false, true}) {
    kit_.db.Sql("delete from TB_POST");
    engine_->Enqueue({Entry(1, "/slow")});
    StatementLog log;
    const std::string said = Run([&] {
      for (std::size_t inserts = 0; inserts < 100; inserts += log.Take().size())
        std::this_thread::yield();
      byUser ? engine_->StopRun() : RunOut();
    });
    EXPECT_TRUE(said.ends_with("R1,0 0")) << "its document was there";
    EXPECT_EQ(std::ranges::count(said, 'W'), byUser ? 1 : 2);
    const int counted = Posts() + 1000 * (300 - Posts());
    EXPECT_NE(said.find(fmt::format("N1,{} ", counted)), std::string::npos) << said;
    EXPECT_TRUE(Posts() > 0 && Posts() < 300) << Posts();
    EXPECT_EQ(static_cast<int>(engine_->Sums().posts.size()), Posts());
  }
}

TEST_F(Refresh, TellsHowFarItIsAndWhenItIsStoppedLosesNothingThatIsAskedForThen) {
  std::string sums;
  onMessage_ = [&](auto& sent) {
    if (sent != SentMessage{kMessageChannelResult, kRunEnded, 0}) return;
    const RefreshSums sum = engine_->Sums();
    sums += fmt::format("{}/{} {} failed, {} posts{} ", sum.done, sum.total, sum.failed,
                        sum.posts.size(), sum.wasStopped ? ", stopped" : "");
  };
  kit_.server.Serve("/a", NumberedRss("c", "http://l/", 2));
  for (const char* path : {"/a", "/absent"}) Queue(path);
  BeginToHang(6);
  EXPECT_EQ(host_.All().back(), (SentMessage{kMessageRefreshProgress, 2, 8}));
  Queue("/a");
  engine_->StopRun();
  engine_->Enqueue({Entry(3, "/a")});  // one that is being stopped
  engine_->StartRefresh();
  for (int run = 0; run < 2; ++run) RunEnds();
  EXPECT_EQ(sums, "2/9 1 failed, 2 posts, stopped 1/1 0 failed, 2 posts ");
  EXPECT_EQ(host_.All()[host_.All().size() - 2], (SentMessage{kMessageRefreshProgress, 1, 1}));
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_state = 0"), 8);
  engine_->StopRun();  // does nothing: no run is under way
  EXPECT_EQ(Again("/a", "delete from TB_POST").substr(0, 17), "W1,0 N1,2 R0,1 R1");
}

TEST_F(Refresh, AStopWaitsForNoServerAndLeavesNothingBehind) {
  for (const char* name : {"Feedloom_tmp", "tmp.xml", "Feedloom_tmp12.xml", "Feedloom_tmp.xml"})
    kit_.folder.Write(name, "");
  Begin();
  EXPECT_EQ(kit_.WorkFiles(), (Names{"Feedloom_tmp", "tmp.xml"})) << "what a crash left is swept";
  engine_->StartRefresh();  // does nothing: the queue is empty
  const std::ptrdiff_t threads = ThreadCount();
  BeginToHang(8);
  EXPECT_GE(ThreadsInTheBackground(), 6);
  engine_->Stop();
  EXPECT_TRUE(ThreadCountComesTo(threads));
  EXPECT_EQ(kit_.WorkFiles().size(), 2u);
  EXPECT_EQ(kit_.db.Count("TB_CHANNEL where channel_state = 0"), 8);
  Queue("/hang");
  engine_->StartRefresh();  // does nothing any more
  engine_->Stop();
  EXPECT_EQ(frame_.All().back(), (SentMessage{kMessageChannelResult, kRunEnded, 0}));
  EXPECT_EQ(host_.All(),
            (std::vector<SentMessage>{
                {kMessageRefreshBegan}, {kMessageRefreshProgress, 0, 8}, {kMessageRefreshEnded}}));
}

TEST_F(Refresh, AWorkerStoppedInTheMiddleOfAMessageEndsItAndSaysNothingMore) {
  Begin({.stopTimeout = 0ms});
  kit_.server.Serve("/a", NumberedRss("c", "http://l/", 1));
  const std::ptrdiff_t threads = ThreadCount();
  std::latch inMessage(1);
  onMessage_ = [&](auto& sent) {
    if (sent.message != kNewPosts) return;
    inMessage.count_down();
    RunEnds();  // as it does when Stop has begun
    EXPECT_EQ(Posts(), 1);
  };
  Queue("/a");
  engine_->StartRefresh();
  inMessage.wait();
  engine_->Stop();
  EXPECT_EQ(frame_.Count(kNewPosts), 1) << "ended before Stop did";
  EXPECT_TRUE(ThreadCountComesTo(threads));
  EXPECT_EQ(frame_.Count(kMessageChannelResult), 1) << "the run's end";
}

TEST_F(Refresh, GoesOnWithFewerThreadsAndEndsWithOneReportWhenItGetsNone) {
  std::optional<ThreadRefusal> refusal;
  onMessage_ = [&](auto& sent) {
    if (sent.message == kMessageChannelResult) refusal.reset();
  };
  kit_.server.Serve("/a", NumberedRss("c", "http://l/", 1));
  BeginToHang(1);
  refusal.emplace();
  for (int i = 0; i < 7; ++i) Queue("/a");
  kit_.server.Serve("/hang", NumberedRss("c", "http://l/", 1));
  RunEnds();
  EXPECT_EQ(Posts(), 8);
  Begin();
  for (int i = 1; i <= 2; ++i) {
    Queue("/a");
    refusal.emplace();
    engine_->StartRefresh();
    EXPECT_EQ(kit_.db.Reports().size(), static_cast<std::size_t>(i));
    EXPECT_FALSE(engine_->IsChannelQueued(8 + i));
    refusal.reset();
  }
  EXPECT_EQ(Again("/a", "delete from TB_POST"), "W1,0 N1,1 R0,1 R1,0 0,0,0,0,0,0,0,0,0,0");
}

TEST_F(Refresh, DoesNotReadWhatIsNotNewUnlessPostsMayBeMissing) {
  const std::string date = "Sat, 21 Nov 2026 12:00:00 GMT", same = "W1,0 R0,1 R1,0 0";
  const std::string failed = "update TB_CHANNEL set channel_state = -2";
  kit_.server.ServeVersion("/new", NumberedRss("c", "http://l/", 2), "\"v1\"", date);
  kit_.server.ServeVersion("/dated", NumberedRss("c", "http://l/", 2), "", date);
  kit_.server.Redirect("/a", kit_.server.Url("/new"), 301);
  Queue("/a");
  kit_.db.Sql(
      "create trigger full before insert on TB_POST when new.post_title = 'Post 2' begin "
      "select raise(fail, 'disk full'); end");
  EXPECT_EQ(Run(), "W1,0 N1,1001 R0,1 R1,0 0") << "one of two could not be stored";
  EXPECT_EQ(Again("/a", "drop trigger full;" + failed), "W1,0 N1,1 R0,1 R1,0 0");
  StatementLog log;
  EXPECT_EQ(Again("/a"), same);
  EXPECT_EQ(log.Take().size(), 2u) << "the store's channels, once a run, and the test's look";
  EXPECT_EQ(kit_.server.LastHeader("/new", "If-None-Match"), "\"v1\"");
  EXPECT_EQ(kit_.server.LastHeader("/new", "If-Modified-Since"), date);
  Begin();
  EXPECT_EQ(Again("/a", failed), same) << "an earlier failure's mark goes";
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(Again("/a", "delete from TB_POST"), "W1,0 N1,2 R0,1 R1,0 0") << i;
  EXPECT_EQ(Again("/dated") + Again("/dated"), same + same);
  EXPECT_EQ(kit_.server.Unchanged(), 3);
  kit_.db.Sql("delete from TB_POST");
  engine_->Enqueue({Entry(1, "/dated")});
  EXPECT_EQ(Run(), "W1,0 N1,2 R0,1 R1,0 0");
}

TEST_F(Refresh, LeavesABusyServerAloneAsLongAsItWants) {
  Queue("/a");
  for (const auto& [status, retryAfter, wait] : {std::tuple(429, "120", 120s),
                                                 {503, "Fri, 31 Dec 2100 00:00:00 GMT", 86400s},
                                                 {500, "120", 0s}}) {
    const std::string path = fmt::format("/{}", runs_);
    kit_.server.Fail(path, status, retryAfter);
    for (const auto& [later, isAsked] :
         {std::pair(90000s, 1), {0s, 0}, {wait - 5s, 0}, {10s, 1}, {-86410s, 1}}) {
      const int requests = kit_.server.Requests(path);
      kit_.db.Clock().Set(floor<std::chrono::seconds>(kit_.db.Clock().Now()) + later);
      Begin();
      Again(path);
      EXPECT_EQ(kit_.server.Requests(path) - requests, wait > 0s ? isAsked : 1) << retryAfter;
    }
  }
}

}  // namespace feedloom
