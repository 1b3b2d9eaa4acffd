#include <gtest/gtest.h>

#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

TEST(QtTextTest, HangulOfTheExtensionComesThroughBothWays) {
  const QString text = QStringLiteral("똠방각하 (3)");
  const std::string inKorean = FromQString(CodePage::Korean(), text);
  EXPECT_EQ(inKorean, "\x8C\x63\xB9\xE6\xB0\xA2\xC7\xCF (3)");
  EXPECT_EQ(ToQString(CodePage::Korean(), inKorean), text);
}

TEST(QtTextTest, TheCodePageDecidesWhatIsLost) {
  const QString text = QStringLiteral("a😀b");
  EXPECT_EQ(FromQString(CodePage::Korean(), text), "a?b");
  EXPECT_EQ(ToQString(CodePage::Utf8(), FromQString(CodePage::Utf8(), text)), text);
}

TEST(QtTextTest, ALineHoldsNoBreaks) {
  const auto line = [](std::string_view text) { return ToLine(CodePage::Utf8(), text); };
  EXPECT_EQ(line("  first\r\n\tsecond \x01 third\x7f "), "first second third");
  EXPECT_EQ(line(std::string_view("a\0b", 3)), "a b");
  EXPECT_EQ(line("line\xE2\x80\xA8paragraph\xE2\x80\xA9next\xC2\x85last"),
            "line paragraph next last");
  EXPECT_EQ(line(" \n "), "");
  EXPECT_EQ(line(""), "");
}

TEST(QtTextTest, ALongLineIsCutBetweenCharacters) {
  // The one-byte letter puts every double-byte character on an odd byte.
  const std::string utf8 = "x" + QString("글").repeated(50'000).toStdString();
  const QString line =
      ToLine(CodePage::Korean(), FromQString(CodePage::Korean(), QString::fromStdString(utf8)));
  EXPECT_EQ(line, "x" + QString("글").repeated(499) + "…");
  EXPECT_EQ(ToLine(CodePage::Utf8(), utf8), line);
  EXPECT_LT(ToLine(CodePage::Korean(), std::string(100'000, '\xFF')).size(), 1000);
}

}  // namespace
}  // namespace feedloom
