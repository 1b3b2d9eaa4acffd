// The checker on its thread, with the test as its owner.
#include <gtest/gtest.h>

#include <optional>

#include "ingest/CheckClock.h"
#include "ingest/FeedChecker.h"
#include "ingest/IngestKit.h"
#include "ingest/ThreadCount.h"
#include "kit/FeedDocuments.h"
#include "kit/Inbox.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

class Checker : public testing::Test {
 protected:
  Checker() {
    checker_.emplace(kit_.Services(clock_),
                     [this](std::function<void()> work) { inbox_.Put(std::move(work)); });
    kit_.server.Serve("/a", NumberedRss("A", "http://a/", 1));
    kit_.server.Serve("/b", NumberedRss("B", "http://b/", 1));
    kit_.server.Hang("/hang");
  }

  void Start(const std::string& path) {
    checker_->Start(kit_.server.Url(path), [this](const FeedCheckAnswer& answer) {
      answers_ += answer.isFeed ? answer.title + " " : "no ";
    });
  }

  // Until what was answered ends with this; work of checks that were stopped may come before.
  [[nodiscard]] bool AnswersCome(const std::string& last) {
    return inbox_.DoUntil([&] { return answers_.ends_with(last); });
  }

  // Ends the checker and hands over what it may have left to say.
  void End() {
    checker_.reset();
    inbox_.DoAll();
    EXPECT_EQ(kit_.WorkFiles(), std::vector<std::string>());
  }

  IngestKit kit_;
  CheckClock clock_;
  Inbox inbox_;
  std::string answers_;  // titles of feeds, "no" for anything else, each with a blank behind it
  std::optional<FeedChecker> checker_;
};

TEST_F(Checker, AnswersEachCheckOnceOnItsOwnersThread) {
  for (const char* path : {"/a", "/absent", "/b"}) {
    Start(path);
    ASSERT_TRUE(inbox_.WaitForWork());
    inbox_.DoAll();
  }
  EXPECT_EQ(answers_, "A no B ");
  End();
  EXPECT_EQ(answers_, "A no B ");
}

TEST_F(Checker, AStopDropsAnAnswerThatIsOnItsWay) {
  Start("/a");
  ASSERT_TRUE(inbox_.WaitForWork());
  checker_->Stop();
  inbox_.DoAll();
  Start("/a");
  ASSERT_TRUE(inbox_.WaitForWork());
  End();
  EXPECT_EQ(answers_, "");
}

TEST_F(Checker, OfTwoQuickStartsTheSecondAnswers) {
  Start("/a");
  Start("/b");
  ASSERT_TRUE(AnswersCome("B "));
  Start("/hang");
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  Start("/a");
  ASSERT_TRUE(AnswersCome("A "));
  EXPECT_EQ(answers_, "B A ");
  End();
  EXPECT_EQ(answers_, "B A ");
}

TEST_F(Checker, AnAnswersReceiverMayStartStopAndEndTheChecker) {
  checker_->Start(kit_.server.Url("/a"), [this](const FeedCheckAnswer&) { Start("/b"); });
  ASSERT_TRUE(inbox_.WaitForWork());
  inbox_.DoAll();
  ASSERT_TRUE(inbox_.WaitForWork());
  inbox_.DoAll();
  EXPECT_EQ(answers_, "B ");
  checker_->Start(kit_.server.Url("/a"), [this](const FeedCheckAnswer& answer) {
    checker_->Stop();
    checker_.reset();
    answers_ += answer.title;
  });
  ASSERT_TRUE(inbox_.WaitForWork());
  inbox_.DoAll();
  EXPECT_EQ(answers_, "B A");
}

TEST_F(Checker, NothingWaitsForAServerThatNeverAnswers) {
  Start("/hang");
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang"));
  const auto start = steady_clock::now();
  Start("/hang");
  checker_->Stop();
  Start("/hang");
  EXPECT_LT(steady_clock::now() - start, 5s);
  ASSERT_TRUE(kit_.server.WaitForRequest("/hang", 20s, 2));
  const auto end = steady_clock::now();
  End();
  EXPECT_LT(steady_clock::now() - end, 5s);
  EXPECT_EQ(answers_, "");
}

TEST_F(Checker, AHundredRoundsLeaveNoThreadAndNoFile) {
  const std::ptrdiff_t before = ThreadCount();
  for (int round = 0; round < 100; ++round) {
    Start(round % 2 == 0 ? "/a" : "/hang");
    if (round % 3 == 0) checker_->Stop();
    inbox_.DoAll();
  }
  End();
  EXPECT_TRUE(ThreadCountComesTo(before));
  EXPECT_EQ(answers_.find("no"), std::string::npos);
}

}  // namespace
}  // namespace feedloom
