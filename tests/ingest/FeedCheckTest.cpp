// Addresses of feeds, and the check of one on a thread.
#include <gtest/gtest.h>

#include "ingest/CheckClock.h"
#include "ingest/FeedAddress.h"
#include "ingest/FeedCheck.h"
#include "ingest/FeedChecker.h"
#include "ingest/IngestKit.h"
#include "kit/FeedDocuments.h"
#include "kit/Inbox.h"
#include "platform/Messages.h"

namespace feedloom {
namespace {

using Cases = std::initializer_list<std::pair<std::string, std::string>>;

TEST(FeedAddress, IsCompletedAndEscapedAndOfTheWebOnlyWithHttpOrHttps) {
  for (const auto& [typed, address] :
       Cases{{"news.kr/feed.xml", "http://news.kr/feed.xml"},
             {" \t feed://news.kr/ \n", "feed://news.kr/"},
             {"mailto:me", "http://mailto:me"},
             {"내 글?q=a%20b", "http://%EB%82%B4%20%EA%B8%80?q=a%20b"},
             {"http://h/\x01~\x7F\"", "http://h/%01~%7F\""},
             {" \n ", ""}}) {
    EXPECT_EQ(CompleteFeedAddress(typed, "http"), address) << typed;
  }
  for (const char* address : {"http://a/", "HTTPS://a/"}) EXPECT_TRUE(IsWebAddress(address));
  for (const char* address : {"", "http", "file:///http://", "httpx://a/", "//a/", " http://a/"}) {
    EXPECT_FALSE(IsWebAddress(address)) << address;
  }
}

class Checking : public testing::Test {
 protected:
  // The check's answer: "feed title|home page" or "no announced feed", where addresses of the
  // server are told by their paths; empty without one.
  std::string Check(const std::string& address, std::stop_token stop = {}) {
    said_.clear();
    RecordingTarget dialog([this](auto& sent) { return OnMessage(sent); });
    CheckFeed(*kit_.Services(clock_), dialog, address, stop);
    return said_;
  }

  std::intptr_t OnMessage(const SentMessage& sent) {
    EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
    if (sent.message == kMessageFeedChecked) {
      const bool isFeed = said_.starts_with("feed");
      const auto* title = reinterpret_cast<const std::string*>(sent.lParam);
      EXPECT_EQ(sent.wParam, isFeed ? 1 : 0);
      EXPECT_EQ(title ? said_.find(*title + "|") : 0, isFeed ? 5 : 0);
      return 0;
    }
    const auto& answer = *reinterpret_cast<const FeedCheckAnswer*>(sent.lParam);
    const std::string home = kit_.server.Url("");
    const std::string& feed = answer.announcedFeed;
    said_ = answer.isFeed ? "feed " + answer.title + "|" + answer.homePage
                          : "no " + feed.substr(feed.starts_with(home) ? home.size() : 0);
    return 0;
  }

  IngestKit kit_;
  CheckClock clock_;
  std::string said_;
};

std::string Link(const std::string& href) {
  return "<link rel='alternate' type='application/rss+xml' href='" + href + "'/>";
}

TEST_F(Checking, AnswersForAFeedForAPageThatAnnouncesOneAndForAnythingElse) {
  const std::string outside = Link("javascript:alert(1)") + Link("file:///etc/passwd") +
                              Link("ftp://f/") + Link("data:text/xml,<rss/>") + Link("page");
  const std::string page = kit_.server.Url("/dir/page");
  kit_.server.Redirect("/short", page);
  for (const auto& [document, answer] :
       Cases{{"<rss version='2.0'><title>내 글</title><link>http://home/</link></rss>",
              "feed " + Korean("내 글") + "|http://home/"},
             {"<feed><link href='http://atom/'/></feed>", "feed |http://atom/"},
             {"<opml version='1.0'><head>" + Link("http://f/") + "</head><body/></opml>", "no "},
             {"<rss><channel><title>no version</title></channel></rss>", "no "},
             {std::string("\x1F\x8B\0\xFF<", 5), "no "},
             {"<title>t" + Link("feed.xml") + Link("other.xml"), "no /dir/feed.xml"},
             {Link("HTTPS://f.kr/한"), "no https://f.kr/%ed%95%9c"},
             {Link("http://한.kr/"), "no http://%ED%95%9C.kr/"},
             {"<link rel='alternate' type='application/atom+xml' href='a?b=1&amp;c=2'/>",
              "no /dir/a?b=1&c=2"},
             {outside, "no "},
             {outside + Link("http://f/"), "no http://f/"}}) {
    kit_.server.Serve("/dir/page", document, "text/html");
    for (const std::string& address : {page, kit_.server.Url("/short")}) {
      EXPECT_EQ(Check(address), answer) << document;
    }
  }
  EXPECT_EQ(clock_.TimePaused(), std::chrono::seconds(22)) << "a second before each";
  EXPECT_EQ(Check(kit_.server.Url("/absent")), "no ");
  EXPECT_EQ(Check("file://" + kit_.db.Folder().Write("page.html", Link("feed.xml"))), "no ");
}

TEST_F(Checking, AServerThatNeverAnswersIsGivenUpOnAStopAndAtTheTimeLimit) {
  kit_.server.Hang("/hang");
  for (const int round : {1, 2}) {
    std::jthread check([&](std::stop_token stop) {
      EXPECT_EQ(Check(kit_.server.Url("/hang"), stop), round == 1 ? "" : "no ");
    });
    ASSERT_TRUE(kit_.server.WaitForRequest("/hang", std::chrono::seconds(20), round));
    if (round == 1) check.request_stop();
    if (round == 2) clock_.RunOut();
    check.join();
  }
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Checking, TheCheckerAnswersForTheLatestAddressUnlessItIsStopped) {
  Inbox inbox;
  std::string answers;
  auto checker = std::make_optional<FeedChecker>(
      kit_.Services(clock_), [&](std::function<void()> work) { inbox.Put(std::move(work)); });
  const auto start = [&](
                         const std::string& path, std::function<void()> then = [] {}) {
    if (path != "/hang") kit_.server.Serve(path, NumberedRss(path, "http://l/", 1));
    checker->Start(kit_.server.Url(path), [&answers, then](const FeedCheckAnswer& answer) {
      answers += answer.title;
      then();
    });
  };
  start("/a");
  ASSERT_TRUE(inbox.WaitForWork());
  checker->Stop();
  inbox.DoAll();
  EXPECT_EQ(answers, "") << "stopped while the answer was on its way";
  kit_.server.Hang("/hang");
  start("/hang");
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  start("/b");
  start("/c", [&] { start("/d", [&] { checker.reset(); }); });
  ASSERT_TRUE(inbox.DoUntil([&] { return !checker; }));
  inbox.DoAll();
  EXPECT_EQ(answers, "/c/d");
}

}  // namespace
}  // namespace feedloom
