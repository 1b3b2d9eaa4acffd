// What a refresh asks of servers, and what it takes from them.
#include <atomic>
#include <thread>

#include "ingest/RefreshFixture.h"
#include "platform/RegistryKeys.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

using GoodGuest = Refresh;

TEST_F(GoodGuest, AServerThatHasNothingNewIsNotReadAndTheStoreIsLeftAlone) {
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

TEST_F(GoodGuest, AFeedThatMovedIsFollowedEachTimeAndKeepsItsAddress) {
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

TEST_F(GoodGuest, TheMarkOfAFailureGoesWhenTheServerHasNothingNew) {
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

TEST_F(GoodGuest, AsksForTheWholeDocumentWhenItsPostsMayBeMissing) {
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

TEST_F(GoodGuest, ABusyServerIsLeftAloneAsLongAsItWants) {
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

TEST_F(GoodGuest, ARunKeepsItsConnections) {
  kit_.server.KeepConnections();
  Begin();
  for (int i = 0; i < 30; ++i) ServeAndQueue(fmt::format("/{}", i), 1);
  RunToEnd();
  EXPECT_EQ(kit_.db.Count("TB_POST"), 30);
  EXPECT_LE(kit_.server.Connections(), 5);
}

TEST_F(GoodGuest, NamesItselfAsTheUserWants) {
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
