#include <fmt/core.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "exchange/FeedDirectory.h"

namespace feedloom {
namespace {

// What was cut from an answer, all in one line: the total, then the fields of each row.
std::string Cut(std::string_view answer) {
  std::vector<PostRow> rows;
  std::string line = std::to_string(CutDirectoryAnswer(answer, rows));
  for (const PostRow& row : rows) {
    line += fmt::format("; {}|{}|{}|{}|{}|{}", row.title, row.link, row.feedUrl, row.published,
                        row.description, row.isPodcast);
  }
  return line;
}

std::string Repeated(int count, std::string_view text) {
  std::string all;
  all.reserve(static_cast<std::size_t>(count) * text.size());
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

TEST(FeedDirectory, TheQueryHoldsTheWordAsItWasTyped) {
  EXPECT_EQ(DirectoryQuery("http://host/search", "R&D #1 \xB0\xA1", 2),
            "http://host/search?ver=0611&maxnum=50&pg=2&str=R&D #1 \xB0\xA1");
  EXPECT_EQ(DirectoryQuery("", "", 1), "?ver=0611&maxnum=50&pg=1&str=");
}

struct Case {
  const char* name;
  const char* answer;
  const char* cut;
};

constexpr const char* kOne = "[TO]1[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]0[QK]";

constexpr Case kWhole[] = {
    {"no record", "[TO]0[QK]", "0"},
    {"no record, blanks", "  [TO] 12 \r\n[QK]\r\n", "12"},
    {"one record", kOne, "1; t|u|ru|2008-05-01 09:30:04|d|0"},
    {"two records, the second a podcast",
     "[TO]2[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]0"
     "[HS]h[IT]t2[IU]u2[RT]rt[RU]ru2[DT]19991231235959[ID]d2[PO]1[QK]",
     "2; t|u|ru|2008-05-01 09:30:04|d|0; t2|u2|ru2|1999-12-31 23:59:95|d2|1"},
    {"blanks around the fields",
     " [TO] 1 [HS] h [IT] t t [IU]\tu [RT] rt [RU]\r\nru\r\n[DT] 20080501093045 [ID] d [PO] 1 [QK]",
     "1; t t|u|ru|2008-05-01 09:30:04|d|1"},
    {"empty fields", "[TO][HS][IT][IU][RT][RU][DT][ID][PO][QK]", "0; |||||0"},
    {"entities",
     "[TO]1[HS][IT]a &lt;b&gt; &amp;amp; &quot;c&quot;[IU]http://u/?a=1&amp;b=2[RT]"
     "[RU]http://f/?a=1&amp;b=2[DT]20080501093045[ID]&lt;p&gt;[PO]0[QK]",
     "1; a <b> &amp; \"c\"|http://u/?a=1&b=2|http://f/?a=1&b=2|2008-05-01 09:30:04|<p>|0"},
    {"other brackets", "[TO]1[HS][IT][it][XX][[IU]u][RT][RU]r[DT]d[ID][[]][PO]0[QK]",
     "1; [it][XX][|u]|r||[[]]|0"},
    {"numbers", "[TO]-3x[HS][IT][IU][RT][RU][DT][ID][PO] 7 posts[QK]", "-3; |||||7"},
    {"a total out of range", "[TO]99999999999[QK]", "1000000000"},
    {"the shortest stamp", "[TO]1[HS][IT][IU][RT][RU][DT]2008050109304[ID][PO]0[QK]",
     "1; |||2008-05-01 09:30:04||0"},
    {"a stamp that is too short", "[TO]1[HS][IT][IU][RT][RU][DT]200805010930[ID][PO]0[QK]",
     "1; |||||0"},
    {"text around the answer", "[HS]x[TO]0[QK]tail[QK]", "0"},
};

constexpr Case kBroken[] = {
    {"nothing", "", "0"},
    {"no answer of this kind", "<html><body>Not found</body></html>", "0"},
    {"a total without an end", "[TO]5", "0"},
    {"only a mark", "[TO]", "0"},
    {"half a mark", "[TO]5[Q", "0"},
    {"no total", "[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]1[QK]",
     "0; t|u|ru|2008-05-01 09:30:04|d|1"},
    {"a record and nothing else", "[TO]1[HS]", "1; |||||0"},
    {"cut off in a field", "[TO]1[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]2008", "1; t|u|ru|||0"},
    {"no end", "[TO]1[HS]h[IT]t[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]1",
     "1; t|u|ru|2008-05-01 09:30:04|d|0"},
    {"no title", "[TO]1[HS]h[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]1[QK]",
     "1; |u|ru|2008-05-01 09:30:04|d|1"},
    {"a title missing before another record takes that one's",
     "[TO]2[HS]h[IU]u[RT]rt[RU]ru[DT]20080501093045[ID]d[PO]0"
     "[HS]h[IT]t2[IU]u2[RT]rt[RU]ru2[DT]19991231235959[ID]d2[PO]1[QK]",
     "2; t2|u2|ru2|1999-12-31 23:59:95|d2|1"},
    {"marks in another order", "[TO]1[HS]h[PO]1[ID]d[DT]20080501093045[RU]ru[RT]rt[IU]u[IT]t[QK]",
     "1; |||||0"},
};

TEST(FeedDirectory, CutsWholeAnswers) {
  for (const Case& entry : kWhole) EXPECT_EQ(Cut(entry.answer), entry.cut) << entry.name;
}

TEST(FeedDirectory, CutsBrokenAnswersSomehow) {
  for (const Case& entry : kBroken) EXPECT_EQ(Cut(entry.answer), entry.cut) << entry.name;
}

TEST(FeedDirectory, TakesFiftyRecordsAtMostAndAppendsThem) {
  std::string answer = "[TO]60";
  for (int i = 1; i <= 60; ++i) {
    answer += fmt::format("[HS][IT]{}[IU][RT][RU][DT][ID][PO]{}", i, i);
  }
  std::vector<PostRow> rows(1);
  EXPECT_EQ(CutDirectoryAnswer(answer + "[QK]", rows), 60);
  ASSERT_EQ(rows.size(), 51u);
  EXPECT_EQ(rows[0].title, "");
  EXPECT_EQ(rows[1].title, "1");
  EXPECT_EQ(rows[50].title, "50");
  EXPECT_EQ(rows[50].isPodcast, 50);
}

TEST(FeedDirectory, WhatNoServiceWouldAnswerCostsLittle) {
  constexpr int kMillion = 1'000'000;
  const std::string fifty = "[TO]50" + Repeated(50, "[HS]");
  const std::string answers[] = {
      Repeated(4 * kMillion, "["),
      fifty + Repeated(4 * kMillion, "["),
      fifty + Repeated(kMillion, "[IT]"),
      Repeated(kMillion, "[HS]"),
      "[TO]1" + Repeated(kMillion / 4, "[HS][IT][IU][RT][RU][DT][ID][PO]"),
      fifty + std::string(4 * kMillion, '\0'),
      fifty + "[IT]" + std::string(4 * kMillion, ' ') + "[IU]" + Repeated(kMillion, "&amp;"),
  };
  for (const std::string& answer : answers) {
    std::vector<PostRow> rows;
    const auto start = std::chrono::steady_clock::now();
    CutDirectoryAnswer(answer, rows);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_LE(rows.size(), 50u);
    std::size_t bytes = 0;
    for (const PostRow& row : rows) {
      bytes += row.title.size() + row.link.size() + row.feedUrl.size() + row.description.size();
    }
    EXPECT_LE(bytes, answer.size());
  }
}

}  // namespace
}  // namespace feedloom
