#include <gtest/gtest.h>

#include "platform/CodePage.h"

namespace feedloom {
namespace {

const CodePage kKorean = CodePage::Korean();
const CodePage kUtf8 = CodePage::Utf8();
constexpr const char* kReplacement = "\xEF\xBF\xBD";

TEST(CodePageTest, KnowsItsNames) {
  EXPECT_EQ(CodePage::FromName("utf-8"), kUtf8);
  EXPECT_EQ(CodePage::FromName("UTF-8").DeclaredName(), "UTF-8");
  for (const char* other : {"", "EUC-KR", "CP949", "utf8x"}) {
    EXPECT_EQ(CodePage::FromName(other).DeclaredName(), "EUC-KR") << other;
  }
}

TEST(CodePageTest, KoreanKeepsTheSyllablesOutsideEucKr) {
  const std::string bytes = "\x8C\x63\xB9\xE6\xB0\xA2\xC7\xCF";
  EXPECT_EQ(kKorean.FromUtf8("똠방각하"), bytes);
  EXPECT_EQ(kKorean.ToUtf8(bytes), "똠방각하");
}

TEST(CodePageTest, AsciiAndLongTextsPassUnchanged) {
  const std::string ascii("a\\~\0\t\x7F", 6);
  EXPECT_EQ(kKorean.FromUtf8(ascii), ascii);
  EXPECT_EQ(kKorean.ToUtf8(ascii), ascii);
  // Longer than any buffer of the conversion, and no syllable begins at a round offset.
  std::string text = "x";
  for (int i = 0; i < 5000; ++i) text += "한글\\";
  EXPECT_EQ(kKorean.ToUtf8(kKorean.FromUtf8(text)), text);
}

TEST(CodePageTest, ACharacterThatThePageLacksBecomesOneQuestionMark) {
  EXPECT_EQ(kKorean.FromUtf8("é😀x"), "??x");
  EXPECT_EQ(kKorean.FromUtf8("가\u0301나"), kKorean.FromUtf8("가?나"));
  EXPECT_EQ(kUtf8.FromUtf8("é😀x"), "é😀x");
}

TEST(CodePageTest, LongTextsKeepTheirPlaceAroundMissingCharacters) {
  std::string text;
  std::string expected;
  for (int i = 0; i < 3000; ++i) {
    const std::string run(static_cast<std::size_t>(i % 37), 'x');
    text += run + "가é나😀";
    expected += run + "가?나?";
  }
  EXPECT_EQ(kKorean.ToUtf8(kKorean.FromUtf8(text)), expected);
}

TEST(CodePageTest, BytesThatAreNotUtf8BecomeQuestionMarksAndTheRestStays) {
  for (const CodePage& page : {kKorean, kUtf8}) {
    EXPECT_EQ(page.FromUtf8("a\xFF"
                            "b"),
              "a?b");
    EXPECT_EQ(page.FromUtf8("cut \xEA\xB0"), "cut ?");
    EXPECT_EQ(page.FromUtf8("\xEA\xB0<b>"), "?<b>");
    EXPECT_EQ(page.FromUtf8("\x80\x80z"), "??z");
    EXPECT_EQ(page.FromUtf8("\xED\xA0\x80z"), "?z") << "a surrogate";
  }
}

TEST(CodePageTest, BytesOutsideThePageBecomeReplacementCharacters) {
  const std::string mark = kReplacement;
  EXPECT_EQ(kKorean.ToUtf8("a\xB0"), "a" + mark) << "a half syllable at the end";
  EXPECT_EQ(kKorean.ToUtf8("\xB0<b>"), mark + "<b>") << "markup survives a half syllable";
  EXPECT_EQ(kKorean.ToUtf8("\xFF\x80z"), mark + mark + "z");
  EXPECT_EQ(kUtf8.ToUtf8("\xEA\xB0\x80\xEA\xB0<b>"), "가" + mark + "<b>");
}

TEST(CodePageTest, CountsTheBytesOfTheFirstCharacter) {
  EXPECT_EQ(kKorean.CharLength("ab"), 1u);
  EXPECT_EQ(kKorean.CharLength("\x8C\x63x"), 2u);
  EXPECT_EQ(kKorean.CharLength("\xB0\xA1\xB0\xA1"), 2u);
  EXPECT_EQ(kKorean.CharLength("\xB0"), 1u) << "never past the end";
  EXPECT_EQ(kKorean.CharLength("\xB0<"), 1u);
  EXPECT_EQ(kKorean.CharLength("\xFF\xFF"), 1u);

  EXPECT_EQ(kUtf8.CharLength("ab"), 1u);
  EXPECT_EQ(kUtf8.CharLength("é"), 2u);
  EXPECT_EQ(kUtf8.CharLength("가나"), 3u);
  EXPECT_EQ(kUtf8.CharLength("😀"), 4u);
  EXPECT_EQ(kUtf8.CharLength("\xEA\xB0"), 2u) << "never past the end";
  EXPECT_EQ(kUtf8.CharLength("\xEA<"), 1u);
  EXPECT_EQ(kUtf8.CharLength("\x80\x80"), 1u);
}

}  // namespace
}  // namespace feedloom
