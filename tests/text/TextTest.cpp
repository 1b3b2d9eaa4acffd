#include "kit/Rows.h"
#include "text/CodePage.h"
#include "text/Text.h"

namespace feedloom {

const CodePage kKorean = CodePage::Korean();
const CodePage kUtf8 = CodePage::Utf8();

TEST(TextTest, FollowsTheRulesOfAscii) {
  ExpectRows([](auto& text) { return std::string(Trim(text)); },
             {" \t\r\n\v\fa b\n  -> a b", " \n -> ", "\xC2\xA0x -> \xC2\xA0x"});
  ExpectRows([](auto& text) { return std::to_string(ParseInt(text)); },
             {" \t\n-7 posts -> -7", "+08.5 -> 8", " -> 0", "x1 -> 0", "+-5 -> 0", "- -> 0",
              "1000000001 -> 1000000000", "-9999999999999999999999 -> -1000000000"});
  EXPECT_EQ(ReplaceAll("aaa aa", "aa", "b") + ToUpperAscii("`az{é"), "ba b`AZ{é");
  EXPECT_TRUE(EqualsIgnoringAsciiCase("T/x", "t/X") && !EqualsIgnoringAsciiCase("é", "É"));
  EXPECT_TRUE(HasControls("\x1F") && HasControls("\x7Fz") && !HasControls(" ~\x80\xFF"));
}

TEST(CodePageTest, ConvertsWhatItHoldsAndMarksTheRest) {
  ExpectRows([](auto& name) { return std::string(CodePage::FromName(name).DeclaredName()); },
             {"utf-8 -> UTF-8", "UTF-8 -> UTF-8", " -> EUC-KR", "CP949 -> EUC-KR"});
  for (const CodePage& page : {kKorean, kUtf8})
    ExpectRows([&](auto& text) { return page.FromUtf8(text); },
               {"a\xFF z -> a? z", "cut \xEA\xB0 -> cut ?", "\xEA\xB0<b> -> ?<b>",
                "\x80\x80z -> ??z", "\xED\xA0\x80z -> ?z", "\xF0\x9F\x98z -> ?z"});
  ExpectRows([](auto& text) { return kKorean.FromUtf8(text); },
             {"\xF4\x90\x80\x80\x80é😀अx가\u0301나 -> ?????x\xB0\xA1?\xB3\xAA",
              "똠방각 -> \x8C\x63\xB9\xE6\xB0\xA2"});
  ExpectRows([](auto& text) { return kKorean.ToUtf8(text); },
             {"\x8C\x63\xB9\xE6\xB0\xA2 -> 똠방각", "a\xB0 -> a\uFFFD", "\xB0<b> -> \uFFFD<b>",
              "\xFF\x80z -> \uFFFD\uFFFDz", "\x81\x40\x81\x41z -> \uFFFD@갂z",
              "\xC9\xA1\xFE\xFEz -> \uFFFD\uFFFDz"});
  ExpectRows([](auto& text) { return kUtf8.ToUtf8(text); },
             {"가\xEA\xB0<b>é\x80 -> 가\uFFFD<b>é\uFFFD"});
}

TEST(CodePageTest, LongTextsKeepTheirPlaceAroundWhatIsMissing) {
  std::string text("\\~\0\t\x7F", 5);
  for (std::size_t i = 0; i < 3000; ++i) text += std::string(i % 37, 'x') + "가é나😀";
  const std::string stored = kKorean.FromUtf8(text);
  EXPECT_EQ(kKorean.ToUtf8(stored), ReplaceAll(ReplaceAll(text, "é", "?"), "😀", "?"));
}

}  // namespace feedloom
