#include <gtest/gtest.h>

#include "platform/CodePage.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace feedloom {
namespace {

TEST(TextTest, TrimTakesWhiteSpaceOffTheTwoEndsOnly) {
  EXPECT_EQ(Trim(" \t\r\n\v\fa b\n "), "a b");
  EXPECT_EQ(Trim(" \n"), "");
  EXPECT_EQ(Trim("\xC2\xA0x"), "\xC2\xA0x") << "only ASCII white space";
}

TEST(TextTest, ParseIntReadsTheNumberAtTheStart) {
  EXPECT_EQ(ParseInt("42"), 42);
  EXPECT_EQ(ParseInt(" \t\n-7 posts"), -7);
  EXPECT_EQ(ParseInt("+08.5"), 8);
  for (const char* none : {"", "  ", "x1", "--5", "+-5", "- 5", "-", "0x10"}) {
    EXPECT_EQ(ParseInt(none), 0) << none;
  }
}

TEST(TextTest, ParseIntHoldsValuesOutOfRange) {
  EXPECT_EQ(ParseInt("999999999"), 999'999'999);
  EXPECT_EQ(ParseInt("1000000001"), 1'000'000'000);
  EXPECT_EQ(ParseInt("-99999999999999999999999999"), -1'000'000'000);
  EXPECT_EQ(ParseInt("00000000000000000000000000012"), 12);
}

TEST(TextTest, ReplaceAllGoesOnceFromLeftToRight) {
  EXPECT_EQ(ReplaceAll("it's 'so'", "'", "''"), "it''s ''so''");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("abc", "b", ""), "ac");
  EXPECT_EQ(ReplaceAll("", "b", "x"), "");
}

TEST(TextTest, CaseRulesTouchAsciiOnly) {
  const std::string korean = CodePage::Korean().FromUtf8("한글é");
  EXPECT_EQ(ToUpperAscii("az-09" + korean), "AZ-09" + korean);
  EXPECT_TRUE(EqualsIgnoringAsciiCase("Text/XML", "tEXT/xml"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("é", "É"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("text", "text/"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("[", "{"));
}

TEST(PathTest, JoinsWithTheSeparatorThatTheDirectoryUses) {
  EXPECT_EQ(JoinPath("/var/feeds", "a.xml"), "/var/feeds/a.xml");
  EXPECT_EQ(JoinPath("/var/feeds/", "a.xml"), "/var/feeds/a.xml");
  EXPECT_EQ(JoinPath(R"(C:\work)", "a.xml"), R"(C:\work\a.xml)");
  EXPECT_EQ(JoinPath(R"(C:\work\)", "a.xml"), R"(C:\work\a.xml)");
  EXPECT_EQ(JoinPath("", "a.xml"), "a.xml");
  EXPECT_EQ(WithTrailingSeparator(""), "");
  EXPECT_EQ(WithTrailingSeparator("/"), "/");
}

}  // namespace
}  // namespace feedloom
