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

}  // namespace
}  // namespace feedloom
