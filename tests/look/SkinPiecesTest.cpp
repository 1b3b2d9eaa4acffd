// What is made of a skin's values: images, places, fonts, colours and texts.

#include <QGuiApplication>

#include "kit/ShippedSkin.h"
#include "look/QtText.h"
#include "look/SkinFont.h"
#include "look/SkinPieces.h"

namespace feedloom {

struct SkinValues : testing::Test {
  // A skin whose host answers with `value` to everything.
  Skin SkinWith(const std::string& value) const {
    return {{{}, [value](auto, auto) { return value; }}, shipped_.Get().Config()};
  }

  const ShippedSkin shipped_;
};

TEST_F(SkinValues, AMissingValueOrFileGivesWhatIsEmptyOrTheDefault) {
  for (const char* value : {"", "none.png", "0"}) {
    EXPECT_TRUE(LoadSkinImage(SkinWith(value), "S", "K").isNull());
    EXPECT_TRUE(LoadStateImages(SkinWith(value), "S", "K")[kButtonHover].isNull());
    EXPECT_TRUE(LoadSkinPlace(SkinWith(value), "S", "K").isEmpty());
    EXPECT_EQ(LoadSkinSize(SkinWith(value), "S", "W", "H", {5, 6}), QSize(5, 6));
  }
  EXPECT_EQ(LoadSkinPlace(SkinWith("1,2,11,22"), "S", "K"), QRect(1, 2, 10, 20));
  EXPECT_EQ(LoadSkinSize(SkinWith("1"), "S", "W", "H", {5, 6}), QSize(1, 1));
  EXPECT_EQ(LoadSkinFont(SkinWith("NanumGothic, 15"), "S", "K").pixelSize(), 15);
  EXPECT_EQ(LoadSkinFont(SkinWith(",15"), "S", "K").family(), QGuiApplication::font().family());
}

TEST(QtTextTest, ALineHoldsNoBreaksAndIsCutBetweenCharacters) {
  const std::pair<std::string, QString> kLines[] = {
      {"  first\r\n\tsecond \x01 third\x7f ", "first second third"},
      {"line\u2028paragraph\u2029next\u0085last", "line paragraph next last"},
      {std::string(500, 'x'), QString(500, 'x')},
      {std::string(501, 'x'), QString(500, 'x') + "…"}};
  for (const auto& [text, line] : kLines) EXPECT_EQ(ToLine(CodePage::Utf8(), text), line);
  // The one-byte letter puts every double-byte character on an odd byte.
  const QString text = "x" + QString("글").repeated(50'000);
  EXPECT_EQ(ToLine(CodePage::Korean(), FromQString(CodePage::Korean(), text)),
            text.left(500) + "…");
}

}  // namespace feedloom
