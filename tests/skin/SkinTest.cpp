
#include "kit/TempFolder.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "skin/Skin.h"
#include "skin/TextPlaceholders.h"

namespace feedloom {

struct SkinTest : testing::Test {
  // A skin whose host answers with "SECTION/KEY" for texts, and with `value` for skin values.
  Skin SkinWith(const std::string& value) const {
    const auto text = [](std::string section, const char* key) { return section + "/" + key; };
    return {{text, [value](const char*, const char*) { return value; }}, config_};
  }
  static SkinRect RectOf(const Skin& skin) {
    SkinRect rect{1, 2, 3, 4};
    skin.GetSkinRect(rect, "S", "K");
    return rect;
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
  const HostConfig config_{registry_};
  const Skin mute_{{}, config_};  // its host has no callbacks
};

TEST_F(SkinTest, TextsAreTheHostsOrElseEmptyAndLabelsTheBuiltInOnes) {
  EXPECT_EQ(SkinWith("").GetText(kSectionTexts, "RSS_KEY"), "FEEDLOOM/RSS_KEY");
  EXPECT_EQ(mute_.GetText("S", "K"), "");
  EXPECT_EQ(GetLabel(SkinWith(""), kLabelAdd), "FEEDLOOM/RSS_MENU_ADD");
  EXPECT_EQ(GetLabel(mute_, kLabelAdd), CodePage::Korean().FromUtf8("추가"));
}

TEST_F(SkinTest, AnImagePathIsTheValueInTheImageDirectory) {
  ASSERT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, "/집/skin"));
  const std::string korean = CodePage::Korean().FromUtf8("그림.png");
  EXPECT_EQ(SkinWith(korean).GetImagePath("S", "K"), "/집/skin/그림.png");
  EXPECT_EQ(mute_.GetImagePath("S", "K"), "/집/skin/");
}

TEST_F(SkinTest, AColorIsTheHostsOrElseTheBuiltInOne) {
  EXPECT_EQ(GetColor(SkinWith("#1B2328"), kColorTreeGround), 0x1B2328u);
  EXPECT_EQ(GetColor(SkinWith("#aBcDeF"), kColorTreeGround), 0xABCDEFu);
  for (const char* value : {"", "1B23280", "#1B232", "#1B23288", "#1B232G", "dark"})
    EXPECT_EQ(GetColor(SkinWith(value), kColorTreeGround), 0xE4F3FFu) << value;
}

TEST_F(SkinTest, ARectangleHasUpToFourNumbersAndTheRestIsZero) {
  const std::pair<const char*, SkinRect> kRects[] = {{"10, 20, 110 ,40", {10, 20, 110, 40}},
                                                     {"10,20", {10, 20, 0, 0}},
                                                     {"7", {7, 0, 0, 0}},
                                                     {"1,2,3,4,5", {1, 2, 3, 4}},
                                                     {",2,,4", {0, 2, 0, 4}},
                                                     {"", {}},
                                                     {"-5,x,3px,", {-5, 0, 3, 0}}};
  for (const auto& [value, rect] : kRects) EXPECT_EQ(RectOf(SkinWith(value)), rect) << value;
  EXPECT_EQ(RectOf(mute_), SkinRect());
}

TEST(TextPlaceholders, BreaksTitlesAndNumbersAreFilledInOnceAndInTheirOrder) {
  EXPECT_EQ(WithLineBreaks("First line$Second line$"), "First line\r\nSecond line\r\n");
  EXPECT_EQ(WithTitle("%s: %s", "100%s"), "100%s: %s");
  EXPECT_EQ(WithTitle("done", "title"), "done");
  EXPECT_EQ(WithNumbers("sent %d, received %d", {12, 0}), "sent 12, received 0");
  EXPECT_EQ(WithNumbers("%d of %d", {1}), "1 of %d");
  EXPECT_EQ(WithNumbers("done", {1}), "done");
}

}  // namespace feedloom
