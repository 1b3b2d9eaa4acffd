// The images of the tree's rows: icons, and the animation of new posts.
#include <gtest/gtest.h>

#include <filesystem>

#include "kit/ShippedSkin.h"
#include "skin/Keys.h"
#include "ui/tree/NewPostAnimation.h"
#include "ui/tree/TreeSkin.h"

namespace feedloom {
namespace {

TEST(TreeImagesTest, BitmapsAreTransparentInTheColourOfTheirKindAndEachAnimationHasItsFile) {
  namespace fs = std::filesystem;
  for (const char* const place : {"Image/Image_KOR/Skyfold_image", "Image/Skyfold_image"}) {
    const TempFolder images;
    const Registry registry(images.File("registry.reg"));
    ASSERT_TRUE(registry.WriteString(kHostKey, kValueImageDir, images.Path()));
    const auto answer = [](const char*, const char*) { return std::string("icon.bmp"); };
    const Skin skin({answer, answer}, HostConfig(registry));
    QImage bitmap(kRowIconSize, kRowIconSize, QImage::Format_RGB32);
    bitmap.fill(QColor(0xE4, 0xF3, 0xFF));
    bitmap.setPixelColor(0, 0, QColor(0xEC, 0xFF, 0xE6));
    ASSERT_TRUE(bitmap.save(QString::fromStdString(images.File("icon.bmp"))));
    const auto alphas = [](const QPixmap& icon) {
      return std::pair(qAlpha(icon.toImage().pixel(0, 0)), qAlpha(icon.toImage().pixel(1, 0)));
    };
    const TreeSkin icons = LoadTreeSkin(skin);
    for (const auto& icon : {icons.channelIcon, icons.failingChannelIcon}) {
      EXPECT_EQ(alphas(icon), std::pair(0, 255));
    }
    for (const auto& icon : {icons.cabinetIcon, icons.unreadCabinetIcon}) {
      EXPECT_EQ(alphas(icon), std::pair(255, 0));
    }
    fs::create_directories(images.File(place));
    fs::copy(ShippedShareDir() + "/skin/light/Image/Skyfold_image/new_ani01.gif",
             images.File(place));
    NewPostAnimation animation(skin, nullptr);
    const bool isForAll = place == std::string("Image/Skyfold_image");
    EXPECT_EQ(animation.Frame(NewPostAnimation::kByMessage).isNull(), isForAll);
    EXPECT_EQ(animation.Frame(NewPostAnimation::kByPainting).isNull(), !isForAll);
  }
}

}  // namespace
}  // namespace feedloom
