#include <gtest/gtest.h>

#include "store/Like.h"
#include "store/SqlText.h"
#include "store/Store.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

TEST(SqlText, DecodesEachEntityOnceAndInOrder) {
  EXPECT_EQ(UnescapeEntities("&lt;b&gt; &#62; &#39; &apos; &#34; &quot; &amp;"),
            "<b> > ' ' \" \" &");
  EXPECT_EQ(UnescapeEntities("&amp;lt;"), "&lt;");
  EXPECT_EQ(UnescapeEntities("&#38;#60; &#38;#38;"), "< &");
  EXPECT_EQ(UnescapeEntities("&#60; &nbsp; &AMP; & &lt"), "&#60; &nbsp; &AMP; & &lt");
}

TEST(SqlText, DecodingAnAmpersandMayMakeALaterEntity) {
  EXPECT_EQ(UnescapeEntities("&amp;quot;"), "\"");
  EXPECT_EQ(UnescapeEntities("&amp;amp;"), "&amp;");
}

TEST(SqlText, DoublesQuotesAfterDecoding) {
  EXPECT_EQ(EscapeSqlText("Tom's &#39;blog&apos;"), "Tom''s ''blog''");
  EXPECT_EQ(FormatSql("where a = %d and b = '%s'", 7, "100% '%d'"),
            "where a = 7 and b = '100% ''%d'''");
}

TEST(Like, MatchesAnywhereAndFoldsAsciiCaseOnly) {
  const CodePage utf8 = CodePage::Utf8();
  EXPECT_TRUE(LikeMatches("%news%", "Old NEWS today", utf8));
  EXPECT_TRUE(LikeMatches("a%c_e", "abbc-c!e", utf8));
  EXPECT_TRUE(LikeMatches("%%", "", utf8));
  EXPECT_FALSE(LikeMatches("", "a", utf8));
  EXPECT_FALSE(LikeMatches("_", "", utf8));
  EXPECT_FALSE(LikeMatches("%É%", "é", utf8));
  EXPECT_FALSE(LikeMatches("abc", "ab", utf8));
}

TEST(Like, TakesKoreanCharactersWhole) {
  const CodePage korean = CodePage::Korean();
  EXPECT_TRUE(LikeMatches(Korean("%글%"), Korean("한글"), korean));
  EXPECT_TRUE(LikeMatches(Korean("한_"), Korean("한글"), korean));
  EXPECT_FALSE(LikeMatches(Korean("한__"), Korean("한글"), korean));
  // 똠 is 8C 63: its second byte is the letter c, which must match nothing and fold with nothing.
  EXPECT_FALSE(LikeMatches("%c%", Korean("똠"), korean));
  EXPECT_FALSE(LikeMatches("\x8C\x43", "\x8C\x63", korean));
}

TEST(Like, ManyWildcardsStayFast) {
  std::string pattern;
  for (int i = 0; i < 40; ++i) pattern += "%a";
  EXPECT_FALSE(LikeMatches(pattern + "b", std::string(20'000, 'a'), CodePage::Korean()));
}

TEST(DbPath, StandsBesideTheModule) {
  EXPECT_EQ(GetDbPath("C:\\Halvix\\feedloom.dll"), "C:\\Halvix\\rssdb");
  EXPECT_EQ(GetDbPath("/usr/lib/feedloom.so"), "/usr/lib/rssdb");
  EXPECT_EQ(GetDbPath(""), "\\rssdb");
}

TEST(Pacing, PausesAroundAStatementButNeverWaitsForAnother) {
  TestStore store;
  store.Get().EnterStoreBusy();
  store.Get().EnterStoreBusy();
  EXPECT_EQ(store.Clock().TimePaused(), std::chrono::milliseconds(10));
  store.Get().LeaveStoreBusy();
  store.Get().LeaveStoreBusy();
  EXPECT_EQ(store.Clock().TimePaused(), std::chrono::milliseconds(20));
  EXPECT_EQ(store.Clock().PauseCount(), 2);
}

}  // namespace
}  // namespace feedloom
