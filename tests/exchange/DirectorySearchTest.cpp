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
using std::chrono::steady_clock;

// An answer with these records of `total`.
std::string AnswerWith(int total, int first, int last) {
  std::string answer = fmt::format("[TO]{}", total);
  for (int number = first; number <= last; ++number) {
    answer += fmt::format(
        "[HS]h[IT]Title {0}[IU]http://post/{0}[RT]r[RU]http://feed/{0}[DT]20080501093045[ID]d[PO]0",
        number);
  }
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

  void Begin(const std::string& word = "w") { search_->Begin(word, Taker()); }
  void More() { search_->More(Taker()); }
  // What comes next, when it has come: the number of rows, "none ", or "" for what was given up.
  std::string Answer() {
    heard_.clear();
    EXPECT_TRUE(inbox_.WaitForWork());
    inbox_.DoAll();
    return heard_;
  }

  DirectorySearch::OnAnswer Taker() {
    return [this](const DirectoryAnswer& answer) {
      heard_ += answer.isAnswered ? std::to_string(answer.rows.size()) + " " : "none ";
      for (const PostRow& row : answer.rows) lastTitle_ = row.title;
    };
  }

  IngestKit kit_;
  CheckClock clock_{10s};
  Inbox inbox_;
  std::string heard_;
  std::string lastTitle_;
  std::optional<DirectorySearch> search_;
};

TEST_F(Searching, TakesSeventyThreeRecordsInTwoPages) {
  Serve(1, AnswerWith(73, 1, 50));
  Serve(2, AnswerWith(73, 51, 73));
  EXPECT_FALSE(search_->HasMore());
  More();
  EXPECT_FALSE(search_->IsRunning());
  Begin();
  EXPECT_TRUE(search_->IsRunning());
  EXPECT_EQ(Answer(), "50 ");
  EXPECT_FALSE(search_->IsRunning());
  EXPECT_EQ(search_->Total(), 73);
  EXPECT_TRUE(search_->HasMore());
  More();
  More();  // while one runs
  EXPECT_EQ(Answer(), "23 ");
  EXPECT_EQ(lastTitle_, "Title 73");
  EXPECT_FALSE(search_->HasMore());
  More();
  EXPECT_FALSE(search_->IsRunning());
  EXPECT_EQ(kit_.server.Requests("/search"), 2);
}

TEST_F(Searching, AnAnswerWithoutRecordsIsAnAnswer) {
  for (const char* answer : {"[TO]0[QK]", "<html>Not here</html>"}) {
    Serve(1, answer);
    Begin();
    EXPECT_EQ(Answer(), "0 ");
    EXPECT_EQ(search_->Total(), 0);
    EXPECT_FALSE(search_->HasMore());
  }
}

TEST_F(Searching, APageThatFailedCanBeAskedForAgain) {
  kit_.server.Fail(Query(1), 500);
  Begin();
  EXPECT_EQ(Answer(), "none ");
  EXPECT_FALSE(search_->HasMore());
  Serve(1, AnswerWith(51, 1, 50));
  Begin();
  EXPECT_EQ(Answer(), "50 ");
  Serve(2, "");
  More();
  EXPECT_EQ(Answer(), "none ");
  EXPECT_EQ(search_->Total(), 51);
  Serve(2, AnswerWith(51, 51, 51));
  More();
  EXPECT_EQ(Answer(), "1 ");
  EXPECT_FALSE(search_->HasMore());
}

TEST_F(Searching, TheWordIsSentAsItWasTyped) {
  RequestRecorder recorder({RequestRecorder::Ok(AnswerWith(60, 1, 50))});
  Search(recorder.HostAndPort() + "/find");
  Begin("\xB0\xA1 R&D #1");
  EXPECT_EQ(Answer(), "50 ");
  More();
  EXPECT_EQ(Answer(), "50 ");
  const std::string rest = "&str=\xB0\xA1 R&D #1 HTTP/1.1";
  EXPECT_EQ(recorder.Lines(), (std::vector{"GET /find?ver=0611&maxnum=50&pg=1" + rest,
                                           "GET /find?ver=0611&maxnum=50&pg=2" + rest}));
}

TEST_F(Searching, GivingUpDropsTheAnswerEvenOnItsWay) {
  Serve(1, AnswerWith(73, 1, 50));
  Begin();
  ASSERT_TRUE(inbox_.WaitForWork());
  search_->GiveUp();
  EXPECT_FALSE(search_->IsRunning());
  EXPECT_EQ(Answer(), "");
  EXPECT_EQ(search_->Total(), 0);
  Begin();
  EXPECT_EQ(Answer(), "50 ");
}

TEST_F(Searching, AFurtherPageThatWasGivenUpCanBeAskedForAgain) {
  Serve(1, AnswerWith(73, 1, 50));
  kit_.server.Hang(Query(2));
  Begin();
  EXPECT_EQ(Answer(), "50 ");
  More();
  ASSERT_TRUE(kit_.server.WaitForRequest(Query(2)));
  search_->GiveUp();
  EXPECT_TRUE(search_->HasMore());
  Serve(2, AnswerWith(73, 51, 73));
  More();
  ASSERT_TRUE(inbox_.DoUntil([this] { return !search_->IsRunning(); }));
  EXPECT_EQ(lastTitle_, "Title 73");
}

TEST_F(Searching, OfTwoWordsTheLaterIsAnswered) {
  kit_.server.Hang(Query(1, "a"));
  Serve(1, AnswerWith(1, 1, 1), "b");
  Begin("a");
  ASSERT_TRUE(kit_.server.WaitForRequest(Query(1, "a")));
  Begin("b");
  ASSERT_TRUE(inbox_.DoUntil([this] { return !search_->IsRunning(); }));
  EXPECT_EQ(heard_, "1 ");
}

TEST_F(Searching, TenSecondsWithoutAnAnswerAreTheEnd) {
  kit_.server.Hang(Query(1));
  Begin();
  ASSERT_TRUE(kit_.server.WaitForRequest(Query(1)));
  clock_.RunOut();
  EXPECT_EQ(Answer(), "none ");
  EXPECT_FALSE(search_->IsRunning());
}

TEST_F(Searching, TheReceiverMayBeginGiveUpAndEndSearches) {
  Serve(1, AnswerWith(73, 1, 50));
  Serve(1, AnswerWith(1, 1, 1), "b");
  search_->Begin("w", [this](const DirectoryAnswer&) { Begin("b"); });
  EXPECT_EQ(Answer(), "");
  EXPECT_EQ(Answer(), "1 ");
  search_->Begin("w", [this](const DirectoryAnswer& answer) {
    search_->GiveUp();
    search_.reset();
    Taker()(answer);
  });
  EXPECT_EQ(Answer(), "50 ");
}

TEST_F(Searching, EndsAtOnceWhileTheServerIsSilentAndLeavesNoThread) {
  const std::ptrdiff_t before = ThreadCount();
  kit_.server.Hang(Query(1));
  for (int round = 1; round <= 10; ++round) {
    Begin();
    ASSERT_TRUE(kit_.server.WaitForRequest(Query(1), 20s, round));
  }
  const auto start = steady_clock::now();
  search_.reset();
  EXPECT_LT(steady_clock::now() - start, 500ms);
  inbox_.DoAll();
  EXPECT_EQ(heard_, "");
  EXPECT_TRUE(ThreadCountComesTo(before));
}

}  // namespace
}  // namespace feedloom
