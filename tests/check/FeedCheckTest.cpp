// Addresses of feeds, and the check of one.
#include "check/FeedCheck.h"
#include "check/FeedChecker.h"
#include "feed/WebAddress.h"
#include "kit/Inbox.h"
#include "kit/Rows.h"
#include "refresh/RefreshKit.h"
#include "text/Text.h"

namespace feedloom {

TEST(WebAddress, IsCompletedAndEscapedAndOfTheWebOnlyWithHttpOrHttps) {
  ExpectRows([](auto& typed) { return CompleteFeedAddress(typed, "http"); },
             {" \t news.kr/x \n -> http://news.kr/x", "feed://k/ -> feed://k/", "Feed:k -> Feed:k",
              " \n  -> ",
              "mailto:내 글\x01\"?q=a%20b -> http://mailto:%EB%82%B4%20%EA%B8%80%01\"?q=a%20b"});
  for (const char* address :
       {"", "http", "httpx://a/", "//a/", " http://a/", "file://http://", "feed://file:///a"})
    EXPECT_FALSE(IsWebAddress(address)) << address;
  EXPECT_TRUE(IsWebAddress("feed:a/b") && IsWebAddress("FEED:HTTPS://a/"));
}

struct Checking : testing::Test {
  // "title|home page|announced feed; whether it is a feed", where addresses of the server are told
  // by their paths.
  std::string Check(const std::string& address, const std::optional<GivenLogin>& login = {}) {
    const FeedCheckAnswer answer = CheckFeed(*kit_.Services(clock_), address, login, {});
    EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
    const std::string said = answer.title + "|" + answer.homePage + "|" + answer.announcedFeed;
    return ReplaceAll(said, kit_.server.Url(""), "") + (answer.isFeed ? "; 1" : "; 0");
  }

  RefreshKit kit_;
  CheckClock clock_;
};

TEST_F(Checking, AnswersForAFeedForAPageThatAnnouncesOneAndForAnythingElse) {
  const auto link = [](const std::string& href) {
    return "<link rel='alternate' type='application/rss+xml' href='" + href + "'/>";
  };
  const std::string outside = link("file:///etc/passwd") + link("ftp://f/") + link("page");
  kit_.server.Redirect("/short", kit_.server.Url("/dir/page"));
  ExpectRows(
      [this](auto& document) {
        kit_.server.Serve("/dir/page", document, "text/html");
        return Check(kit_.server.Url("/short"));
      },
      {"<rss version='2.0'><title>t</title><link>l</link></rss> -> t|l|; 1",
       "<feed><link href='http://atom/'/></feed> -> |http://atom/|; 1",
       "<opml version='1.0'>" + link("http://f/") + "<body/></opml> -> ||; 0",
       "<rss><channel><title>no version</title></channel></rss> -> ||; 0", "\x1F\x8B\xFF< -> ||; 0",
       "<title>t" + link("feed.xml") + link("other.xml") + " -> ||/dir/feed.xml; 0",
       "<link rel='alternate' type='application/atom+xml' href='a?b&amp;c'/> -> ||/dir/a?b&c; 0",
       outside + " -> ||; 0", outside + link("http://f/") + " -> ||http://f/; 0"});
  EXPECT_EQ(clock_.TimePaused(), std::chrono::seconds(9)) << "a second before each";
  EXPECT_EQ(Check(kit_.server.Url("/absent")), "||; 0");
  EXPECT_EQ(Check("file://" + kit_.db.Folder().Write("page.html", link("feed.xml"))), "||; 0");
}

TEST_F(Checking, TakesJsonFeedsForAHostThatReadsThem) {
  const std::string feed =
      R"({"version":"https://jsonfeed.org/version/1","title":"t","home_page_url":"../home"})";
  const std::string page = "<link rel='alternate' type='application/feed+json' href='feed'/>";
  for (const bool isLenient : {false, true}) {
    kit_.isLenient = isLenient;
    kit_.server.Serve("/dir/feed", feed, "application/feed+json");
    kit_.server.Serve("/dir/page", page, "text/html");
    EXPECT_EQ(Check(kit_.server.Url("/dir/feed")), isLenient ? "t|/home|; 1" : "||; 0");
    EXPECT_EQ(Check(kit_.server.Url("/dir/page")), isLenient ? "||/dir/feed; 0" : "||; 0");
  }
}

TEST_F(Checking, KeepsTheLoginThatAServerAsksForOnceItIsRight) {
  kit_.server.Protect("/feed", "<rss version='2.0'/>", "bWU6cHc=");  // me:pw
  const std::string url = kit_.server.Url("/feed"), origin = kit_.server.Url("");
  const auto asks = [&](const std::optional<GivenLogin>& login) {
    return CheckFeed(*kit_.Services(clock_), url, login, {}).loginServer == origin;
  };
  EXPECT_TRUE(asks({}) && asks(GivenLogin{origin, {"me", "no"}}) && asks({}));
  EXPECT_FALSE(asks(GivenLogin{origin, {"me", "pw"}}) || asks({}));
  kit_.folder.Write("logins.reg", "damaged");
  const auto answer = CheckFeed(*kit_.Services(clock_), url, GivenLogin{origin, {"me", "pw"}}, {});
  EXPECT_TRUE(answer.isFeed && answer.loginIsLost);
}

TEST_F(Checking, GivesUpASilentServerAtTheTimeLimitOnAThreadInTheBackground) {
  kit_.server.Hang("/hang");
  Inbox inbox;
  bool isFeed = true;
  FeedChecker checker(kit_.Services(clock_), [&](auto work) { inbox.Put(std::move(work)); });
  checker.Start(kit_.server.Url("/hang"), {}, [&](auto& answer) { isFeed = answer.isFeed; });
  EXPECT_TRUE(kit_.server.WaitForRequest("/hang"));
  EXPECT_GE(ThreadsInTheBackground(), 1);
  clock_.RunOut();
  EXPECT_TRUE(inbox.DoUntil([&] { return !isFeed; }));
}

}  // namespace feedloom
