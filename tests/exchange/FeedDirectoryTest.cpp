#include <fmt/core.h>
#include <gtest/gtest.h>

#include "exchange/FeedDirectory.h"

namespace feedloom {
namespace {

// What was cut from an answer: the total, then the fields of each row.
std::string Cut(std::string_view answer) {
  std::vector<PostRow> rows;
  std::string line = std::to_string(ParseDirectoryAnswer(answer, rows));
  for (const PostRow& row : rows) {
    line += fmt::format(";{}|{}|{}|{}|{}|{}", row.title, row.link, row.feedUrl, row.published,
                        row.description, row.isPodcast);
  }
  return line;
}

std::string Repeated(int count, std::string_view text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST(FeedDirectory, CutsWholeAnswersRightAndBrokenOnesSomehow) {
  const std::pair<const char*, const char*> cases[] = {
      {"[TO]0[QK]", "0"},
      {"x [TO] 12 \r\n[QK]\r\ntail[QK]", "12"},
      {"[TO]-3x[QK]", "-3"},
      {"[TO]99999999999[QK]", "1000000000"},
      {"[TO]2[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]0[HS]h[IT]t2[IU]u2[RT]rt[RU]ru2"
       "[DT]19991231235959[ID]d2[PO]1[QK]",
       "2;t|u|ru|2008-05-01 09:30:04|d|0;t2|u2|ru2|1999-12-31 23:59:95|d2|1"},
      {"[TO]1[HS] h [IT] t t [IU]\tu [RT] rt [RU]\r\nru\n[DT] 2008050109304 [ID] d [PO] 7 "
       "posts[QK]",
       "1;t t|u|ru|2008-05-01 09:30:04|d|7"},
      {"[TO][HS][IT][IU][RT][RU][DT]200805010930[ID][PO][QK]", "0;|||||0"},
      {"[TO]1[HS][IT]&lt;b&gt; &amp;amp;[IU]?a&amp;b[RT][RU]?c&amp;d[DT][ID]&lt;p&gt;[PO]0[QK]",
       "1;<b> &amp;|?a&b|?c&d||<p>|0"},
      {"[TO]1[HS][IT][it][XX][[IU]u][RT][RU]r[DT]d[ID][[]][PO]0[QK]", "1;[it][XX][|u]|r||[[]]|0"},
      {"", "0"},
      {"<html>Not found</html>", "0"},
      {"[TO]5[Q", "0"},
      {"[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT][ID]d[PO]1[QK]", "0;t|u|ru||d|1"},
      {"[TO]1[HS]", "1;|||||0"},
      {"[TO]1[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]2008", "1;t|u|ru|||0"},
      {"[TO]1[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT][ID]d[PO]1", "1;t|u|ru||d|0"},
      {"[TO]2[HS]h[IU]u[RT]rt[RU]ru[DT][ID]d[PO]0[HS]h[IT]t2[IU]u2[RT]rt[RU]ru2[DT][ID]d2[PO]1[QK]",
       "2;t2|u2|ru2||d2|1"},
      {"[TO]1[HS]h[PO]1[ID]d[DT]20080501093045[RU]ru[RT]rt[IU]u[IT]t[QK]", "1;|||||0"},
  };
  for (const auto& [answer, cut] : cases) EXPECT_EQ(Cut(answer), cut) << answer;
}

// A search that begins anew for each mark would not end soon on such answers.
TEST(FeedDirectory, TakesFiftyRecordsAtMostHoweverLongTheAnswer) {
  constexpr int kMillion = 1'000'000;
  std::size_t most = 0;
  const std::string fifty = "[TO]50" + Repeated(50, "[HS]");
  for (const std::string& answer :
       {fifty + Repeated(kMillion, "[IT]"), Repeated(kMillion, "[HS]"),
        fifty + std::string(4 * kMillion, '\0'),
        "[TO]1" + Repeated(kMillion / 4, "[HS][IT]t[IU][RT][RU][DT][ID][PO]1"),
        fifty + "[IT]" + std::string(4 * kMillion, ' ') + "[IU]" + Repeated(kMillion, "&amp;")}) {
    std::vector<PostRow> rows(1);
    ParseDirectoryAnswer(answer, rows);
    EXPECT_LE(rows.size(), 51u);
    most = std::max(most, rows.size());
    EXPECT_EQ(rows[0].title, "") << "they are appended";
  }
  EXPECT_EQ(most, 51u);
}

}  // namespace
}  // namespace feedloom
