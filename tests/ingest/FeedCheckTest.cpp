#include <gtest/gtest.h>

#include <thread>

#include "ingest/CheckClock.h"
#include "ingest/FeedCheck.h"
#include "ingest/FeedCheckAnswer.h"
#include "ingest/IngestKit.h"
#include "kit/FeedDocuments.h"
#include "platform/Messages.h"

namespace feedloom {
namespace {

class Checking : public testing::Test {
 protected:
  // Checks what lies at `path` of the server.
  int Check(const std::string& path) { return CheckAddress(kit_.server.Url(path), {}); }

  int CheckAddress(const std::string& address, std::stop_token stop) {
    return CheckFeed(*kit_.Services(clock_), dialog_, address, stop);
  }

  // The feed that a page at /dir/page announces.
  std::string AnnouncedBy(const std::string& page) {
    kit_.server.Serve("/dir/page", page, "text/html");
    EXPECT_EQ(Check("/dir/page"), 0);
    return answer_.announcedFeed;
  }

  // Copies what the messages point at: it is gone afterwards.
  std::intptr_t OnMessage(const SentMessage& sent) {
    EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
    if (sent.message == kMessageFeedDetails) {
      answer_ = *reinterpret_cast<const FeedCheckAnswer*>(sent.lParam);
    } else if (sent.lParam != 0) {
      title_ = *reinterpret_cast<const std::string*>(sent.lParam);
    }
    return 0;
  }

  IngestKit kit_;
  CheckClock clock_;
  FeedCheckAnswer answer_;
  std::string title_;
  RecordingTarget dialog_{[this](const SentMessage& sent) { return OnMessage(sent); }};
};

std::string Link(const std::string& href) {
  return "<link rel='alternate' type='application/rss+xml' href='" + href + "'/>";
}

TEST_F(Checking, AFeedAnswersWithItsTitleAndItsHomePage) {
  kit_.server.Serve("/rss",
                    "<rss version='2.0'><channel><title>내 글</title><link>http://home/</link>"
                    "</channel></rss>");
  EXPECT_EQ(Check("/rss"), 1);
  ASSERT_EQ(dialog_.All().size(), 2u);
  EXPECT_EQ(dialog_.All()[0].message, kMessageFeedDetails);
  EXPECT_EQ(dialog_.All()[1].message, kMessageFeedChecked);
  EXPECT_EQ(dialog_.All()[1].wParam, 1);
  EXPECT_EQ(title_, Korean("내 글"));
  EXPECT_TRUE(answer_.isFeed);
  EXPECT_EQ(answer_.title, title_);
  EXPECT_EQ(answer_.homePage, "http://home/");
  EXPECT_EQ(answer_.announcedFeed, "");
  EXPECT_EQ(clock_.TimePaused(), std::chrono::seconds(1));

  kit_.server.Serve("/bare", "<feed><link href='http://atom/'/></feed>");
  EXPECT_EQ(Check("/bare"), 1);
  EXPECT_EQ(title_, "");
  EXPECT_EQ(answer_.homePage, "http://atom/");
}

TEST_F(Checking, AnythingElseAnswersNo) {
  kit_.server.Serve("/opml",
                    "<opml version='1.0'><head>" + Link("http://f/") + "</head><body/></opml>");
  kit_.server.Serve("/rss", "<rss><channel><title>no version</title></channel></rss>");
  kit_.server.Serve("/html", "<html><title>t</title></html>");
  kit_.server.Serve("/empty", "");
  kit_.server.Serve("/noise", std::string("\x1F\x8B\0\xFF<", 5));
  for (const char* path : {"/opml", "/rss", "/html", "/empty", "/noise", "/absent"}) {
    EXPECT_EQ(Check(path), 0);
    EXPECT_EQ(dialog_.All().back(), (SentMessage{kMessageFeedChecked, 0, 0})) << path;
    EXPECT_FALSE(answer_.isFeed) << path;
    EXPECT_EQ(answer_.title + answer_.homePage + answer_.announcedFeed, "") << path;
  }
}

TEST_F(Checking, APageAnswersWithTheFirstFeedThatItAnnounces) {
  const std::string dir = kit_.server.Url("/dir/");
  EXPECT_EQ(AnnouncedBy("<title>t" + Link("feed.xml") + Link("no.xml")), dir + "feed.xml");
  EXPECT_EQ(AnnouncedBy(Link("HTTPS://f.kr/한")), "https://f.kr/%ed%95%9c");
  EXPECT_EQ(AnnouncedBy(Link("http://한.kr/")), "http://%ED%95%9C.kr/");
  EXPECT_EQ(AnnouncedBy("<html xmlns='http://www.w3.org/1999/xhtml'><link rel='alternate' "
                        "type='application/atom+xml' href='a?b=1&amp;c=2'/></html>"),
            dir + "a?b=1&c=2");
}

TEST_F(Checking, AFeedsAddressIsReadWhereARedirectLed) {
  kit_.server.Redirect("/short", kit_.server.Url("/dir/page"));
  kit_.server.Serve("/dir/page", Link("feed.xml"));
  EXPECT_EQ(Check("/short"), 0);
  EXPECT_EQ(answer_.announcedFeed, kit_.server.Url("/dir/feed.xml"));
}

TEST_F(Checking, OnlyAddressesOfTheWebAreTakenFromAPage) {
  const std::string outside = Link("javascript:alert(1)") + Link("file:///etc/passwd") +
                              Link("ftp://f/") + Link("data:text/xml,<rss/>") + Link("page");
  EXPECT_EQ(AnnouncedBy(outside), "") << "nor the page itself";
  EXPECT_EQ(AnnouncedBy(outside + Link("http://f/")), "http://f/");
  const std::string local = "file://" + kit_.db.Folder().Write("page.html", Link("feed.xml"));
  EXPECT_EQ(CheckAddress(local, {}), 0);
  EXPECT_EQ(answer_.announcedFeed, "");
}

TEST_F(Checking, AServerThatNeverAnswersIsGivenUpAtTheTimeLimit) {
  kit_.server.Hang("/hang");
  std::jthread check([this] { EXPECT_EQ(Check("/hang"), 0); });
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  EXPECT_TRUE(dialog_.All().empty());
  clock_.RunOut();
  EXPECT_TRUE(dialog_.WaitFor(kMessageFeedChecked, 0, 0));
}

TEST_F(Checking, AStoppedCheckEndsAtOnceAndAnswersNothing) {
  kit_.server.Hang("/hang");
  std::jthread check(
      [this](std::stop_token stop) { CheckAddress(kit_.server.Url("/hang"), stop); });
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  check.request_stop();
  check.join();
  EXPECT_TRUE(dialog_.All().empty());
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

}  // namespace
}  // namespace feedloom
