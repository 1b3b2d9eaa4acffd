#include <gtest/gtest.h>

#include "vxctrl/ButtonImages.h"

namespace feedloom {
namespace {

using Paths = std::array<std::string, kButtonStateCount>;

TEST(ButtonImagesTest, TheStatesLieBesideTheNormalImage) {
  EXPECT_EQ(ButtonImagePaths("/skin/go.png"),
            (Paths{"/skin/go.png", "/skin/go_hover.png", "/skin/go_pressed.png",
                   "/skin/go_disabled.png"}));
}

TEST(ButtonImagesTest, OnlyTheFileNameHasAnExtension) {
  EXPECT_EQ(ButtonImagePaths("/skin.d/go")[kButtonHover], "/skin.d/go_hover");
  EXPECT_EQ(ButtonImagePaths("C:\\skin.d\\go")[kButtonHover], "C:\\skin.d\\go_hover");
  EXPECT_EQ(ButtonImagePaths("")[kButtonHover], "_hover");
}

}  // namespace
}  // namespace feedloom
