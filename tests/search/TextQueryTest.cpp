#include <gtest/gtest.h>

#include "search/TextQuery.h"

namespace feedloom {
namespace {

// A query's parts as one text: "-" excluded, "t" "c" "a" the field, its pieces with "+" between
// those that are joined, "*" for a beginning.
std::string Read(const std::string& query) {
  constexpr const char* kFields[] = {"", "t:", "c:", "a:"};
  std::string text;
  for (const QueryPart& part : ParseTextQuery(query).parts) {
    text += (text.empty() ? "" : " | ") + std::string(part.isExcluded ? "-" : "") +
            kFields[static_cast<int>(part.field)];
    for (std::size_t i = 0; i < part.pieces.size(); ++i)
      text += (i == 0 ? "" : part.pieces[i].joinsPrevious ? "+" : " ") + part.pieces[i].folded;
    text += part.isBeginning ? "*" : "";
  }
  return text;
}

TEST(TextQuery, ReadsWordsPhrasesBeginningsAndFields) {
  const struct {
    const char* query;
    const char* read;
  } kQueries[] = {
      {"News", "news"},
      {"  two\twords ", "two | words"},
      {"\"United  States\" -war", "united states | -war"},
      {"\"no end", "no end"},
      {"micro* \"open sour\"*", "micro* | open sour*"},
      {"title:Linux 제목:한국 channel:\"The Times\" author:smith -글쓴이:kim",
       "t:linux | t:한+국 | c:the times | a:smith | -a:kim"},
      {"ÜBER Straße ﬁn ｆｕｌｌ don't", "uber | strasse | fin | full | don t"},
      {"KBS뉴스", "kbs+뉴+스"},
      {"c++ 2.0 e-mail", "c | 2 0 | e mail"},
      {"word\"a phrase\"", "word | a phrase"},
      {"\xff\xfe word", "word"},
  };
  for (const auto& [query, read] : kQueries) EXPECT_EQ(Read(query), read) << query;
}

TEST(TextQuery, ReadsDates) {
  const TextQuery query = ParseTextQuery("x since:2006 까지:2006-05");
  EXPECT_LT(query.since, "2006-01-01 00:00:00");
  EXPECT_GT(query.until, "2006-05-31 23:59:59");
  EXPECT_LT(query.until, "2006-06-01 00:00:00");
}

TEST(TextQuery, SaysWhatIsWrong) {
  const struct {
    std::string query;
    QueryFault fault;
  } kQueries[] = {
      {"", QueryFault::kNothing},
      {" \" * - -\" - title: ++", QueryFault::kNothing},
      {"-only -without", QueryFault::kNothing},
      {"since:2006", QueryFault::kNothing},
      {"x since:May", QueryFault::kDate},
      {"x until:2006-5", QueryFault::kDate},
      {"x until:2006-13", QueryFault::kDate},
      {"x since:2006-02-29", QueryFault::kDate},
      {std::string(100'000, '"'), QueryFault::kNothing},
      {std::string(100'000, 'x'), QueryFault::kNone},
  };
  for (const auto& [query, fault] : kQueries)
    EXPECT_EQ(ParseTextQuery(query).fault, fault) << query.substr(0, 40);
  std::string many;
  while (many.size() < 100'000) many += "a ";
  EXPECT_EQ(ParseTextQuery(many).fault, QueryFault::kTooManyWords);
  EXPECT_TRUE(ParseTextQuery(many).parts.empty());
}

}  // namespace
}  // namespace feedloom
