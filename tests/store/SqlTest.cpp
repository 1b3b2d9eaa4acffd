
#include "store/Like.h"
#include "store/SqlText.h"
#include "store/StoreKit.h"

namespace feedloom {

TEST(SqlText, EntitiesAreDecodedOneAfterTheOtherThenQuotesDoubledAndFieldsFilledInOnce) {
  const std::pair<std::string, std::string> cases[] = {
      {"&#38;#60;b&lt; &#62;&gt; &#38;#38;&amp; &#39;&apos; &#34;&quot;", "<b< >> && '' \"\""},
      {"&#38;#38;lt; &#38;#38;gt; &#38;#38;#62;", "&lt; &gt; &#62;"},
      {"&amp;lt; &amp;#62; &amp;#38;#60; &amp;#38;#38;", "&lt; &#62; &#38;#60; &#38;#38;"},
      {"&amp;#39; &amp;apos; &amp;#34; &amp;quot; &#38;#38;amp;quot;", "' ' \" \" \""},
      {"&amp;amp; &#60; &nbsp; &AMP; & &lt", "&amp; &#60; &nbsp; &AMP; & &lt"},
  };
  for (const auto& [text, decoded] : cases) EXPECT_EQ(UnescapeEntities(text), decoded);
  EXPECT_EQ(FormatSql("where a = %d and b = '%s'", 7, "100% '%d' &#39;blog&apos;"),
            "where a = 7 and b = '100% ''%d'' ''blog'''");
}

TEST(Like, TakesCharactersWholeAndFoldsAsciiOnly) {
  const auto like = [](const std::string& pattern, const std::string& text) {
    return LikeMatches(Korean(pattern), Korean(text), CodePage::Korean());
  };
  std::string wildcards = "b";
  for (int i = 0; i < 40; ++i) wildcards = "%a" + wildcards;
  EXPECT_TRUE(like("%news%", "Old NEWS today") && like("a%c_e", "abbc-c!e") &&
              like("a%bc", "abbc") && like("%%", "") && like("%글%", "한글") &&
              like("한_", "한글"));
  EXPECT_FALSE(like("%a", "") || like("", "a") || like("_", "") || like("abc", "ab") ||
               like("ab", "abc") || like("ac", "abc") || like("한__", "한글") ||
               like(wildcards, std::string(20'000, 'a')));
  // 똠 is 8C 63 in this code page, and 63 alone is the letter "c".
  EXPECT_FALSE(like("%c%", "똠") || LikeMatches("\x8C\x43", "\x8C\x63", CodePage::Korean()));
}

TEST(Store, TheDatabaseLiesBesideTheModule) {
  EXPECT_EQ(GetDbPath("C:\\Halvix\\feedloom.dll"), "C:\\Halvix\\rssdb");
  EXPECT_EQ(GetDbPath("/usr/lib/feedloom.so") + GetDbPath("a.so"), "/usr/lib/rssdbrssdb");
}

}  // namespace feedloom
