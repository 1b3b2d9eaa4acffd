// Answers of the directory, and a search on its thread with the test as its owner.
#include <fmt/core.h>

#include "exchange/DirectorySearch.h"
#include "kit/DirectoryService.h"
#include "kit/Inbox.h"
#include "refresh/RefreshKit.h"

namespace feedloom {

// What was cut from an answer: the total, then the fields of each row.
static std::string Cut(std::string_view answer) {
  const auto [isAnswered, total, rows] = ParseDirectoryAnswer(answer);
  std::string line = std::to_string(total);
  for (const PostRow& row : rows)
    line += fmt::format(";{}|{}|{}|{}|{}|{}", row.title, row.link, row.feedUrl, row.published,
                        row.description, row.isPodcast);
  return line;
}

TEST(FeedDirectory, CutsWholeAnswersRightAndBrokenOnesSomehow) {
  const std::pair<const char*, const char*> cases[] = {
      {"x [TO] 12 \r\n[QK]\r\ntail[QK]", "12"},
      {"[TO]2[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]0[HS]h[IT]t2[IU]u2[RT]rt[RU]ru2"
       "[DT]19991231235959[ID]d2[PO]1[QK]",
       "2;t|u|ru|2008-05-01 09:30:04|d|0;t2|u2|ru2|1999-12-31 23:59:95|d2|1"},
      {"[TO]1[HS] h [IT] t t [IU]\tu [RT] rt [RU]\r\nru\n[DT] 2008050109304 [ID] d [PO] 7 "
       "posts[QK]",
       "1;t t|u|ru|2008-05-01 09:30:04|d|7"},
      {"[TO]1[HS][IT]&lt;b&gt; &amp;amp;[IU]?a&amp;b[RT][RU]?c&amp;d[DT][ID]&lt;p&gt;[PO]0[QK]",
       "1;<b> &amp;|?a&b|?c&d||<p>|0"},
      {"[TO]1[HS][IT][it][XX][[IU]u][RT][RU]r[DT]d[ID][[]][PO]0[QK]", "1;[it][XX][|u]|r||[[]]|0"},
      {"<html>Not found</html>", "0"},
      {"[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT][ID]d[PO]1", "0;t|u|ru||d|0"},
      {"[TO]1[HS]h[PO]1[ID]d[DT]20080501093045[RU]ru[RT]rt[IU]u[IT]t[QK]", "1;|||||0"},
  };
  for (const auto& [answer, cut] : cases) EXPECT_EQ(Cut(answer), cut) << answer;
}

// A search that begins anew for each mark would not end soon on such answers.
TEST(FeedDirectory, TakesFiftyRecordsAtMostHoweverLongTheAnswer) {
  for (const std::string text : {"[HS]", "[HS][IT]t[IU][RT][RU][DT][ID][PO]1"}) {
    std::string answer = "[TO]50";
    while (answer.size() < 4'000'000) answer += text;
    EXPECT_EQ(ParseDirectoryAnswer(answer).rows.size(), 50u) << text;
  }
}

struct Searching : testing::Test {
  // A request that the server has, and does not answer.
  void BeginSilent() {
    service_.Hang(1);
    search_->Begin("word", receiver_);
    ASSERT_TRUE(service_.WaitForRequest(1));
  }

  // What is heard until no request runs: of each answer its number of rows and its last title.
  std::string Heard() {
    EXPECT_TRUE(inbox_.DoUntil([this] { return !search_ || !search_->IsRunning(); }));
    return std::exchange(heard_, "");
  }
  std::string AfterBegin() { return search_->Begin("word", receiver_), Heard(); }
  std::string AfterMore() { return search_->More(receiver_), Heard(); }

  RefreshKit kit_;
  DirectoryService service_;
  CheckClock clock_{kDirectoryTimeLimit};
  Inbox inbox_;
  std::string heard_;
  const DirectorySearch::OnAnswer receiver_ = [this](const DirectoryAnswer& answer) {
    const std::string title = answer.rows.empty() ? "" : answer.rows.back().title;
    heard_ += answer.isAnswered ? fmt::format("{}:{} ", answer.rows.size(), title) : "none ";
  };
  std::optional<DirectorySearch> search_{
      std::in_place, kit_.Services(clock_), service_.Address(),
      [this](std::function<void()> work) { inbox_.Put(std::move(work)); }};
};

TEST_F(Searching, GivingUpDropsTheAnswerEvenOnItsWayAndTheSearchBeforeGoesOn) {
  BeginSilent();
  service_.ServeTwoPages();
  EXPECT_EQ(AfterBegin(), "50:Title 50 ") << "of two searches the later is answered";
  search_->Begin("word", receiver_);
  ASSERT_TRUE(inbox_.WaitForWork());
  search_->GiveUp();
  EXPECT_EQ(AfterMore(), "23:Title 73 ");
}

TEST_F(Searching, TenSecondsWithoutAnAnswerAreTheEnd) {
  BeginSilent();
  clock_.RunOut();
  EXPECT_EQ(Heard(), "none ");
}

TEST_F(Searching, TheReceiverMayEndSearches) {
  service_.ServeTwoPages();
  search_->Begin("word", [this](const DirectoryAnswer&) { search_.reset(); });
  EXPECT_EQ(Heard(), "");
}

}  // namespace feedloom
