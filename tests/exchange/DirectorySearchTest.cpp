// A search of the directory on its thread, with the test as its owner.
#include <fmt/core.h>
#include <gtest/gtest.h>

#include <optional>

#include "exchange/DirectorySearch.h"
#include "ingest/CheckClock.h"
#include "ingest/IngestKit.h"
#include "ingest/ThreadCount.h"
#include "kit/Inbox.h"
#include "kit/RequestRecorder.h"

namespace feedloom {
namespace {

using namespace std::chrono_literals;

// An answer with the records `first` to `last` of `total`.
std::string AnswerWith(int total, int first, int last) {
  std::string answer = fmt::format("[TO]{}", total);
  for (int i = first; i <= last; ++i)
    answer += fmt::format("[HS][IT]{}[IU][RT][RU][DT][ID][PO]", i);
  return answer + "[QK]";
}

class Searching : public testing::Test {
 protected:
  Searching() { Search(kit_.server.Url("/search")); }

  void Search(const std::string& service) {
    search_.emplace(kit_.Services(clock_), service,
                    [this](std::function<void()> work) { inbox_.Put(std::move(work)); });
  }

  static std::string Query(int page, const std::string& word = "w") {
    return fmt::format("/search?ver=0611&maxnum=50&pg={}&str={}", page, word);
  }
  void Serve(int page, const std::string& answer, const std::string& word = "w") {
    kit_.server.Serve(Query(page, word), answer);
  }
  // A request that the server has, and does not answer.
  void BeginSilent(const std::string& word = "w", int count = 1) {
    kit_.server.Hang(Query(1, word));
    Begin(word);
    ASSERT_TRUE(kit_.server.WaitForRequest(Query(1, word), 20s, count));
  }

  void Begin(const std::string& word = "w") { search_->Begin(word, receiver_); }
  // What is heard until no request runs: of each answer its number of rows and its last title.
  std::string Heard() {
    EXPECT_TRUE(inbox_.DoUntil([this] { return !search_ || !search_->IsRunning(); }));
    return std::exchange(heard_, "");
  }
  std::string AfterBegin() { return Begin(), Heard(); }
  std::string AfterMore() { return search_->More(receiver_), Heard(); }

  IngestKit kit_;
  CheckClock clock_{10s};
  Inbox inbox_;
  std::string heard_;
  const DirectorySearch::OnAnswer receiver_ = [this](const DirectoryAnswer& answer) {
    const std::string title = answer.rows.empty() ? "" : answer.rows.back().title;
    heard_ += answer.isAnswered ? fmt::format("{}:{} ", answer.rows.size(), title) : "none ";
  };
  std::optional<DirectorySearch> search_;
};

TEST_F(Searching, TakesSeventyThreeRecordsInTwoPages) {
  Serve(1, AnswerWith(73, 1, 50));
  Serve(2, AnswerWith(73, 51, 73));
  EXPECT_EQ(AfterMore(), "") << "before a search";
  EXPECT_EQ(AfterBegin(), "50:50 ");
  EXPECT_EQ(search_->Total(), 73);
  EXPECT_TRUE(search_->HasMore());
  search_->More(receiver_);
  EXPECT_EQ(AfterMore(), "23:73 ") << "one page, though asked for twice";
  EXPECT_FALSE(search_->HasMore());
  EXPECT_EQ(AfterMore(), "");
  EXPECT_EQ(kit_.server.Requests("/search"), 2);
}

TEST_F(Searching, APageThatFailedCanBeAskedForAgain) {
  Serve(1, "<html>Not here</html>");
  EXPECT_EQ(AfterBegin(), "0: ");
  EXPECT_FALSE(search_->HasMore());
  Serve(1, AnswerWith(51, 1, 50));
  EXPECT_EQ(AfterBegin(), "50:50 ");
  kit_.server.Fail(Query(2), 500);
  EXPECT_EQ(AfterMore(), "none ");
  Serve(2, AnswerWith(51, 51, 51));
  EXPECT_EQ(AfterMore(), "1:51 ");
}

TEST_F(Searching, TheWordIsSentAsItWasTyped) {
  RequestRecorder recorder({RequestRecorder::Ok("[TO]60[QK]")});
  Search(recorder.HostAndPort() + "/find");
  Begin("\xB0\xA1 R&D #1");
  EXPECT_EQ(Heard(), "0: ");
  EXPECT_EQ(AfterMore(), "0: ");
  const std::string rest = "&str=\xB0\xA1 R&D #1 HTTP/1.1";
  EXPECT_EQ(recorder.Lines(), (std::vector{"GET /find?ver=0611&maxnum=50&pg=1" + rest,
                                           "GET /find?ver=0611&maxnum=50&pg=2" + rest}));
}

TEST_F(Searching, GivingUpDropsTheAnswerEvenOnItsWayAndTheSearchBeforeGoesOn) {
  Serve(1, AnswerWith(73, 1, 50));
  Serve(2, AnswerWith(73, 51, 73));
  EXPECT_EQ(AfterBegin(), "50:50 ");
  Begin();
  ASSERT_TRUE(inbox_.WaitForWork());
  search_->GiveUp();
  inbox_.DoAll();
  BeginSilent("other");
  search_->GiveUp();
  EXPECT_EQ(AfterMore(), "23:73 ");
}

TEST_F(Searching, OfTwoWordsTheLaterIsAnswered) {
  BeginSilent("other");
  Serve(1, AnswerWith(50, 1, 50));
  EXPECT_EQ(AfterBegin(), "50:50 ");
  EXPECT_FALSE(search_->HasMore());
}

TEST_F(Searching, TenSecondsWithoutAnAnswerAreTheEnd) {
  BeginSilent();
  clock_.RunOut();
  EXPECT_EQ(Heard(), "none ");
}

TEST_F(Searching, TheReceiverMayBeginGiveUpAndEndSearches) {
  Serve(1, AnswerWith(73, 1, 50));
  search_->Begin("w", [this](const DirectoryAnswer&) { Begin(); });
  EXPECT_EQ(Heard(), "50:50 ");
  search_->Begin("w", [this](const DirectoryAnswer& answer) {
    search_->GiveUp();
    search_.reset();
    receiver_(answer);
  });
  EXPECT_EQ(Heard(), "50:50 ");
}

// The clock stands still: an end that waits for the time limit would never come.
TEST_F(Searching, EndsWhileTheServerIsSilentAndLeavesNoThread) {
  const std::ptrdiff_t before = ThreadCount();
  for (int round = 1; round <= 10; ++round) BeginSilent("w", round);
  search_.reset();
  inbox_.DoAll();
  EXPECT_EQ(Heard(), "");
  EXPECT_TRUE(ThreadCountComesTo(before));
}

}  // namespace
}  // namespace feedloom
