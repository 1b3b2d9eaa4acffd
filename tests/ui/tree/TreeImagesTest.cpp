// The images of the tree's rows: icons, and the animation of new posts.
#include <gtest/gtest.h>

#include <filesystem>

#include "kit/ShippedSkin.h"
#include "skin/Keys.h"
#include "ui/tree/NewPostAnimation.h"
#include "ui/tree/TreeSkin.h"

namespace feedloom {
namespace {

// A host whose every image is the same bitmap, in an image directory with one of two animations.
TEST(TreeImagesTest, BitmapsAreTransparentInTheColourOfTheirKindAndEachAnimationHasItsFile) {
  for (const std::string place : {"Image/Image_KOR/Skyfold_image", "Image/Skyfold_image"}) {
    const TempFolder images;
    const Registry registry(images.File("registry.reg"));
    ASSERT_TRUE(registry.WriteString(kHostKey, kValueImageDir, images.Path()));
    const auto answer = [](const char*, const char*) { return std::string("icon.bmp"); };
    const Skin skin({answer, answer}, HostConfig(registry));
    QImage bitmap(2, 1, QImage::Format_RGB32);
    bitmap.setPixelColor(0, 0, QColor(0xEC, 0xFF, 0xE6));
    bitmap.setPixelColor(1, 0, QColor(0xE4, 0xF3, 0xFF));
    ASSERT_TRUE(bitmap.save(QString::fromStdString(images.File("icon.bmp"))));
    const auto [folders, cabinets, channel, failing, cabinet, unread, cursor, mark] =
        LoadTreeSkin(skin);
    for (const auto& [icon, clear] :
         {std::pair(channel, 0), {failing, 0}, {cabinet, 1}, {unread, 1}}) {
      EXPECT_EQ(qAlpha(icon.toImage().pixel(clear, 0)), 0);
      EXPECT_EQ(qAlpha(icon.toImage().pixel(1 - clear, 0)), 255);
    }
    std::filesystem::create_directories(images.File(place));
    std::filesystem::copy(ShippedShareDir() + "/skin/light/Image/Skyfold_image/new_ani01.gif",
                          images.File(place));
    NewPostAnimation animation(skin, nullptr);
    EXPECT_EQ(animation.Frame(NewPostAnimation::kByMessage).isNull(), place.size() == 19);
    EXPECT_EQ(animation.Frame(NewPostAnimation::kByPainting).isNull(), place.size() != 19);
  }
}

}  // namespace
}  // namespace feedloom
