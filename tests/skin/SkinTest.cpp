#include <gtest/gtest.h>

#include <ostream>

#include "kit/TempFolder.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {

void PrintTo(const SkinRect& rect, std::ostream* out) {
  *out << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom;
}

namespace {

class SkinTest : public testing::Test {
 protected:
  // A skin whose host answers every text with "text:SECTION/KEY" and every skin value with `value`.
  Skin SkinWith(const std::string& value) const {
    return Skin(
        {.HostGetText = [](const char* section,
                           const char* key) { return std::string("text:") + section + "/" + key; },
         .HostGetSkinValue = [value](const char*, const char*) { return value; }},
        HostConfig(registry_));
  }
  void SetImageDir(const std::string& directory) const {
    ASSERT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, directory));
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
};

TEST_F(SkinTest, TextsAndValuesAreTheHostsAnswers) {
  const Skin skin = SkinWith("42");
  EXPECT_EQ(skin.GetText(kSectionTexts, "RSS_KEY"), "text:FEEDLOOM/RSS_KEY");
  EXPECT_EQ(skin.GetSkinValue("RSS_LEFT", "TOOLBAR_WIDTH"), "42");
}

TEST_F(SkinTest, WithoutCallbacksEverythingIsEmpty) {
  const Skin skin({}, HostConfig(registry_));
  EXPECT_EQ(skin.GetText("S", "K"), "");
  EXPECT_EQ(skin.GetSkinValue("S", "K"), "");
}

TEST_F(SkinTest, AnImagePathIsTheValueInTheImageDirectory) {
  SetImageDir("C:\\Skin");
  EXPECT_EQ(SkinWith("a.bmp").GetImagePath("S", "K"), "C:\\Skin\\a.bmp");
  EXPECT_EQ(SkinWith("").GetImagePath("S", "K"), "C:\\Skin\\");
  SetImageDir("/집/skin/");
  const std::string korean = CodePage::Korean().FromUtf8("그림.png");
  EXPECT_EQ(SkinWith(korean).GetImagePath("S", "K"), "/집/skin/그림.png");
}

TEST_F(SkinTest, AColorIsTheHostsOrElseTheBuiltInOne) {
  EXPECT_EQ(GetColor(SkinWith("#1B2328"), kColorTreeGround), 0x1B2328u);
  EXPECT_EQ(GetColor(SkinWith("#aBcDeF"), kColorTreeGround), 0xABCDEFu);
  for (const char* value : {"", "1B2328", "#1B232", "#1B23288", "#1B232G", "dark"}) {
    EXPECT_EQ(GetColor(SkinWith(value), kColorTreeGround), 0xE4F3FFu) << value;
  }
}

TEST_F(SkinTest, ARectangleIsEmptiedBeforeItIsRead) {
  SkinRect rect{1, 2, 3, 4};
  SkinWith("7").GetSkinRect(rect, "S", "K");
  EXPECT_EQ(rect, (SkinRect{7, 0, 0, 0}));
  SkinWith("").GetSkinRect(rect, "S", "K");
  EXPECT_EQ(rect, SkinRect{});
}

TEST(ParseSkinRectTest, ReadsUpToFourFields) {
  EXPECT_EQ(ParseSkinRect("10, 20, 110 ,40"), (SkinRect{10, 20, 110, 40}));
  EXPECT_EQ(ParseSkinRect("10,20"), (SkinRect{10, 20, 0, 0}));
  EXPECT_EQ(ParseSkinRect("1,2,3,4,5"), (SkinRect{1, 2, 3, 4}));
  EXPECT_EQ(ParseSkinRect(",2,,4"), (SkinRect{0, 2, 0, 4}));
  EXPECT_EQ(ParseSkinRect("-5,x,3px,"), (SkinRect{-5, 0, 3, 0}));
}

}  // namespace
}  // namespace feedloom
