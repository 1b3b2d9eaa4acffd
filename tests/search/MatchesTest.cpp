#include <gtest/gtest.h>

#include "search/Marks.h"
#include "search/PostMatch.h"

namespace feedloom {
namespace {

int RelevanceOf(const std::string& query, const SearchedPost& post) {
  return Relevance(ParseTextQuery(query), post);
}

const SearchedPost kPost{.title = "한국경제 뉴스: Über uns",
                         .html =
                             "<p>The <b>Uni</b>ted States &amp; the <a href='x'>가격을</a> "
                             "ニュースを読む</p><script>hidden</script>",
                         .channel = "Daily",
                         .authors = "Ann Smith\nKim",
                         .published = "2006-05-17 10:00:00"};

TEST(PostMatch, FindsWordsOfTitleAndText) {
  for (const char* query :
       {"uber", "ÜBER", "한국", "국경", "경제", "가격", "united", "\"the united states\"",
        "ニュース", "\"uber un\"* uber", "stat*", "\"한국 경제\"", "title:뉴스", "channel:daily",
        "author:smith", "uns -war", "uns since:2006 until:2006-05-17", "-title:states uns"})
    EXPECT_GT(RelevanceOf(query, kPost), 0) << query;
}

TEST(PostMatch, FindsNothingElse) {
  for (const char* query : {"ber", "unite", "hidden", "href", "경재", "국뉴", "\"states united\"",
                            "title:states", "author:daily", "channel:smith", "uns -über",
                            "uns since:2006-06", "uns until:2006-04", "uns war", "tat*", "제가"})
    EXPECT_EQ(RelevanceOf(query, kPost), 0) << query;
}

TEST(PostMatch, PrefersTitles) {
  const SearchedPost inText{.title = "Other", .html = "linux linux linux"};
  const SearchedPost inTitle{.title = "Linux", .html = "other"};
  EXPECT_GT(RelevanceOf("linux", inTitle), RelevanceOf("linux", inText));
}

// The text with its marks in brackets.
std::string Marked(const std::string& query, std::string text) {
  const std::vector<Mark> marks = FindMarks(text, ParseTextQuery(query));
  for (auto mark = marks.rbegin(); mark != marks.rend(); ++mark) {
    text.insert(mark->end, "]");
    text.insert(mark->begin, "[");
  }
  return text;
}

TEST(Marks, StandWhereTheWordsAre) {
  EXPECT_EQ(Marked("uber 국경 -other", "Other Über, 한국경제"), "Other [Über], 한[국경]제");
  EXPECT_EQ(Marked("\"a b\" b", "a b b-a b"), "[a b] [b]-[a b]");
  EXPECT_EQ(Marked("ann", "Ann's l’Ann"), "[Ann]'s l’[Ann]");
  EXPECT_EQ(Marked("micro* author:smith", "Smith's microscope"), "Smith's [microscope]");
  EXPECT_EQ(Marked("\"u\u0308ber\" uber", "u\u0308ber"), "[u\u0308ber]");
}

TEST(Marks, SecondLineBeginsNearTheFirstMark) {
  const TextQuery query = ParseTextQuery("needle");
  std::string text = "needle first";
  EXPECT_EQ(TextAroundFirstMark(text, query, 40), text);
  text = "word " + text;
  for (int i = 0; i < 100; ++i) text = "가나다 " + text;
  const std::string around = TextAroundFirstMark(text, query, 24);
  EXPECT_TRUE(around.starts_with("… ")) << around;
  EXPECT_NE(around.find("needle first"), std::string::npos) << around;
  EXPECT_EQ(TextAroundFirstMark("no such word", query, 7), "no such");
}

}  // namespace
}  // namespace feedloom
