// What is remembered of each try: why it failed, since when, and where the feed has gone.
#include <fmt/core.h>

#include "fetch/FaultWords.h"
#include "kit/FeedDocuments.h"
#include "kit/Rows.h"
#include "refresh/RefreshEngine.h"
#include "refresh/RefreshKit.h"

namespace feedloom {

using namespace std::chrono_literals;

struct Visits : testing::Test {
  Visits() { kit_.db.AddChannelWithPosts(1, "feed", 0); }

  // Refreshes channel 1 from `url`; `meanwhile` runs when the run has begun.
  FeedVisit Visit(
      const std::string& url, const std::function<void()>& meanwhile = [] {}) {
    const Channel channel{.id = 1, .folderId = 1, .xmlLink = url};
    engine_.Enqueue({channel});
    engine_.StartRefresh();
    meanwhile();
    EXPECT_TRUE(host_.WaitFor(kMessageRefreshEnded, ++runs_));
    return engine_.LastVisit(channel);
  }
  FeedVisit VisitPath(const std::string& path) { return Visit(kit_.server.Url(path)); }

  // "kind: words" of a refresh.
  std::string Said(const std::string& url) {
    const FeedFault fault = Visit(url.starts_with('/') ? kit_.server.Url(url) : url).fault;
    return fmt::format("{}: {}", FaultKindName(fault.kind), FaultWords(fault));
  }

  void Later(std::chrono::system_clock::duration by) {
    kit_.db.Clock().Set(kit_.db.Clock().Now() + by);
    engine_.Enqueue({});  // wakes the monitor
  }
  std::chrono::sys_seconds Now() {
    return std::chrono::floor<std::chrono::seconds>(kit_.db.Clock().Now());
  }

  RefreshKit kit_;
  RecordingTarget frame_, host_;
  RefreshEngine engine_{kit_.Services(), frame_, host_};
  int runs_ = 0;
};

TEST_F(Visits, TellEachCauseOfAFailure) {
  kit_.server.Endless("/endless");
  kit_.server.Protect("/login", "", "x");
  kit_.server.BreakOff("/short", "<rss>");
  kit_.server.Serve("/page",
                    "\xEF\xBB\xBF<?xml version='1.0'?><!-- x -->\n<!doctype HTML><p>a<br>");
  kit_.server.Serve("/opml", OpmlDocument(""));
  kit_.server.Serve("/svg", "<svg:svg xmlns:svg='s'/>");
  kit_.server.Serve("/broken", "<rss version='2.0'>\n <a></b><c></d>");
  kit_.server.Serve("/deep", "<rss version='2.0'>" + Repeated("<a>", 300));
  kit_.server.Serve("/blank", " \n");
  const std::string port = fmt::format("127.0.0.1:{}", kit_.server.Port());
  ExpectRows(
      [this](auto& url) { return Said(url); },
      {"http://nowhere.invalid/ -> no-such-host: no such host",
       "http://127.0.0.1:1/ -> not-connected: connection refused, or no way to the server",
       "https://" + port + "/ -> tls: TLS: wrong version number",
       "gopher://x/ -> bad-address: no address of the web",
       "/endless -> too-large: too large: longer than 67108864 bytes",
       "/absent -> http-status: HTTP status 404",
       "/login -> login-wanted: the server wants a name and a password",
       "/short -> other: failed: transfer closed with 1000 bytes remaining to read",
       "/page -> web-page: a web page, not a feed", "/opml -> opml-list: an OPML list, not a feed",
       "/svg -> other-document: another document, not a feed: svg:svg",
       "/broken -> broken-xml: broken XML in line 2, column 9: "
       "Opening and ending tag mismatch: a line 2 and b",
       "/deep -> too-large: too large: more than 256 elements within each other",
       "/blank -> empty: an empty document"});
}

TEST_F(Visits, AtTheTimeLimitAreRememberedButNotWhenTheUserStops) {
  kit_.server.Hang("/hang");
  const std::string url = kit_.server.Url("/hang");
  const auto after = [&](const std::function<void()>& what) {
    return [&, what, count = kit_.server.Requests("/hang") + 1] {
      EXPECT_TRUE(kit_.server.WaitForRequest("/hang", 20s, count));
      what();
    };
  };
  EXPECT_TRUE(Visit(url, after([this] { engine_.StopRun(); })).IsEmpty());
  const FeedVisit late = Visit(url, after([this] { Later(RefreshLimits().timeLimit); }));
  EXPECT_EQ(FaultWords(late.fault), "timed out");
  EXPECT_EQ(late.failingSince, Now());
}

TEST_F(Visits, CountTheDaysOfFailureUntilTheFeedComesAgain) {
  EXPECT_EQ(VisitPath("/feed").failingSince, Now());
  Later(24h * 30);
  const FeedVisit failed = VisitPath("/feed");
  EXPECT_EQ(failed.failingSince, Now() - 24h * 30);
  EXPECT_TRUE(failed.tried == Now() && IsDead(failed, Now()) && !IsDead(failed, Now() - 1s));
  kit_.server.ServeVersion("/feed", NumberedRss("Feed", "http://p/", 1), "\"1\"");
  const FeedVisit well = VisitPath("/feed");
  EXPECT_TRUE(well.succeeded == Now() && well.failingSince == std::chrono::sys_seconds());
  Later(1h);
  const FeedVisit unchanged = VisitPath("/feed");
  EXPECT_TRUE(kit_.server.Unchanged() == 1 && unchanged.succeeded == Now() &&
              unchanged.validators == well.validators);
  kit_.server.Fail("/feed", 503, "60");
  const FeedVisit busy = VisitPath("/feed");
  Later(1s);
  EXPECT_EQ(VisitPath("/feed"), busy) << "not asked, nothing learnt";
  Later(60s);
  kit_.server.Fail("/feed", 410);
  EXPECT_TRUE(IsDead(VisitPath("/feed"), Now()));
}

TEST_F(Visits, TellWhereTheFeedHasGoneForGood) {
  kit_.server.Serve("/c", NumberedRss("Feed", "http://p/", 1));
  for (const auto& [second, movedTo] : {std::pair(308, "/c"), {302, ""}}) {
    kit_.server.Redirect("/a", kit_.server.Url("/b"), 301);
    kit_.server.Redirect("/b", kit_.server.Url("/c"), second);
    EXPECT_EQ(ReplaceAll(VisitPath("/a").movedTo, kit_.server.Url(""), ""), movedTo);
  }
  EXPECT_EQ(VisitPath("/c").movedTo, "");
}

TEST_F(Visits, TellThatPostsCouldNotBeStoredAndAskForThemAgain) {
  kit_.db.Sql(
      "create trigger t before insert on TB_POST when new.post_link = 'http://p/2' "
      "begin select raise(fail, 'no'); end");
  kit_.server.ServeVersion("/feed", NumberedRss("Feed", "http://p/", 3), "\"1\"");
  EXPECT_EQ(FaultWords(VisitPath("/feed").fault), "not all posts could be stored (1 missing)");
  EXPECT_EQ(engine_.Sums().missing, 1);
  kit_.db.Sql("drop trigger t");
  EXPECT_EQ(VisitPath("/feed").succeeded, Now());
  EXPECT_EQ(kit_.db.Count("TB_POST"), 3);
}

}  // namespace feedloom
