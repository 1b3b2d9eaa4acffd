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
#include "platform/Text.h"

namespace feedloom {
namespace {

using Cases = std::initializer_list<std::pair<std::string, std::string>>;

TEST(FeedAddress, IsCompletedAndEscapedAndOfTheWebOnlyWithHttpOrHttps) {
  std::string complete;
  for (const char* typed :
       {" \t news.kr/x \n", "feed://k/", "mailto:내 글?q=a%20b", "x\x01~\x7F\"", " \n "}) {
    complete += CompleteFeedAddress(typed, "http") + ' ';
  }
  EXPECT_EQ(complete,
            "http://news.kr/x feed://k/ http://mailto:%EB%82%B4%20%EA%B8%80?q=a%20b "
            "http://x%01~%7F\"  ");
  for (const char* address : {"", "http", "httpx://a/", "//a/", " http://a/", "file://http://"}) {
    EXPECT_FALSE(IsWebAddress(address)) << address;
  }
}

class Checking : public testing::Test {
 protected:
  // What the two messages say: "title|home page|announced feed; 1 title", where addresses of the
  // server are told by their paths.
  std::string Check(const std::string& address, std::stop_token stop = {}) {
    std::string said;
    RecordingTarget dialog([&](const SentMessage& sent) {
      EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
      if (sent.message == kMessageFeedDetails) {
        const auto& answer = *reinterpret_cast<const FeedCheckAnswer*>(sent.lParam);
        said = answer.title + "|" + answer.homePage + "|" + answer.announcedFeed + "; ";
      } else {
        const auto* title = reinterpret_cast<const std::string*>(sent.lParam);
        said += sent.wParam == 1 ? "1 " + *title : "0";
      }
      return 0;
    });
    CheckFeed(*kit_.Services(clock_), dialog, address, stop);
    return ReplaceAll(said, kit_.server.Url(""), "");
  }

  IngestKit kit_;
  CheckClock clock_;
};

std::string Link(const std::string& href) {
  return "<link rel='alternate' type='application/rss+xml' href='" + href + "'/>";
}

TEST_F(Checking, AnswersForAFeedForAPageThatAnnouncesOneAndForAnythingElse) {
  const std::string outside = Link("javascript:alert(1)") + Link("file:///etc/passwd") +
                              Link("ftp://f/") + Link("data:text/xml,<rss/>") + Link("page");
  const std::string mine = Korean("내");
  kit_.server.Redirect("/short", kit_.server.Url("/dir/page"));
  for (const auto& [document, answer] :
       Cases{{"<rss version='2.0'><title>내</title><link>l</link></rss>", mine + "|l|; 1 " + mine},
             {"<feed><link href='http://atom/'/></feed>", "|http://atom/|; 1 "},
             {"<opml version='1.0'>" + Link("http://f/") + "<body/></opml>", "||; 0"},
             {"<rss><channel><title>no version</title></channel></rss>", "||; 0"},
             {"\x1F\x8B\xFF<", "||; 0"},
             {"<title>t" + Link("feed.xml") + Link("other.xml"), "||/dir/feed.xml; 0"},
             {Link("HTTPS://f.kr/한"), "||https://f.kr/%ed%95%9c; 0"},
             {Link("http://한.kr/"), "||http://%ED%95%9C.kr/; 0"},
             {"<link rel='alternate' type='application/atom+xml' href='a?b&amp;c'/>",
              "||/dir/a?b&c; 0"},
             {outside, "||; 0"},
             {outside + Link("http://f/"), "||http://f/; 0"}}) {
    kit_.server.Serve("/dir/page", document, "text/html");
    EXPECT_EQ(Check(kit_.server.Url("/short")), answer) << document;
  }
  EXPECT_EQ(clock_.TimePaused(), std::chrono::seconds(11)) << "a second before each";
  EXPECT_EQ(Check(kit_.server.Url("/absent")), "||; 0");
  EXPECT_EQ(Check("file://" + kit_.db.Folder().Write("page.html", Link("feed.xml"))), "||; 0");
}

TEST_F(Checking, GivesUpASilentServerOnAStopAndAtTheTimeLimit) {
  kit_.server.Hang("/hang");
  std::string said;
  for (const int round : {1, 2}) {
    std::jthread check(
        [&](std::stop_token stop) { said += Check(kit_.server.Url("/hang"), stop) + "."; });
    ASSERT_TRUE(kit_.server.WaitForRequest("/hang", std::chrono::seconds(20), round));
    round == 1 ? (void)check.request_stop() : clock_.RunOut();
    check.join();
  }
  EXPECT_EQ(said, ".||; 0.");
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Checking, TheCheckerAnswersForTheLatestAddressUnlessItIsStopped) {
  Inbox inbox;
  std::string answers;
  FeedChecker checker(kit_.Services(clock_), [&](auto work) { inbox.Put(std::move(work)); });
  for (const std::string path : {"/a", "/b", "/c", "/d"}) {
    const bool isHeard = path > "/b";
    kit_.server.Serve(path, NumberedRss(path, "http://l/", 1));
    checker.Start(kit_.server.Url(path), [&](auto& answer) { answers += answer.title; });
    EXPECT_TRUE(path != "/a" || inbox.WaitForWork());
    if (path == "/a") checker.Stop();  // its answer is on its way
    EXPECT_TRUE(!isHeard || inbox.DoUntil([&] { return answers.ends_with(path); }));
  }
  EXPECT_EQ(answers, "/c/d");
}

}  // namespace
}  // namespace feedloom
