#include <gtest/gtest.h>

#include <thread>

#include "ingest/FeedCheck.h"
#include "ingest/IngestKit.h"
#include "kit/FeedDocuments.h"
#include "platform/Messages.h"

namespace feedloom {
namespace {

class Checking : public testing::Test {
 protected:
  int Check(const std::string& path) {
    return CheckFeed(*kit_.Services(), dialog_, kit_.server.Url(path), {});
  }

  // Copies the title while the message is being handled: it is gone afterwards.
  std::intptr_t OnMessage(const SentMessage& message) {
    if (message.lParam != 0) title_ = *reinterpret_cast<const std::string*>(message.lParam);
    return 0;
  }

  IngestKit kit_;
  std::string title_;
  RecordingTarget dialog_{[this](const SentMessage& message) { return OnMessage(message); }};
};

TEST_F(Checking, AFeedAnswersWithItsTitle) {
  kit_.server.Serve("/rss", NumberedRss("My feed", "http://l/", 2));
  EXPECT_EQ(Check("/rss"), 1);
  ASSERT_EQ(dialog_.All().size(), 1u);
  EXPECT_EQ(dialog_.All()[0].message, kMessageFeedChecked);
  EXPECT_EQ(dialog_.All()[0].wParam, 1);
  EXPECT_EQ(title_, "My feed");
  EXPECT_EQ(kit_.db.Clock().TimePaused(), std::chrono::seconds(1));
}

TEST_F(Checking, AnythingElseAnswersNo) {
  kit_.server.Serve("/opml", "<opml version='1.0'><body/></opml>");
  kit_.server.Serve("/html", "<html><title>t</title></html>");
  for (const char* path : {"/opml", "/html", "/absent"}) EXPECT_EQ(Check(path), 0);
  EXPECT_EQ(dialog_.Count([](const SentMessage& message) {
    return message == SentMessage{kMessageFeedChecked, 0, 0};
  }),
            3);
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

TEST_F(Checking, AStoppedCheckEndsAtOnceAndAnswersNothing) {
  kit_.server.Hang("/hang");
  std::jthread check([&](std::stop_token stop) {
    CheckFeed(*kit_.Services(), dialog_, kit_.server.Url("/hang"), stop);
  });
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  check.request_stop();
  check.join();
  EXPECT_TRUE(dialog_.All().empty());
  EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
}

}  // namespace
}  // namespace feedloom
