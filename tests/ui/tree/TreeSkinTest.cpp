#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>

#include "kit/ShippedSkin.h"
#include "kit/TempFolder.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "ui/tree/NewPostAnimation.h"
#include "ui/tree/TreeSkin.h"

namespace feedloom {
namespace {

// A host whose every skin value is the same bitmap, which knows no transparency.
class TreeSkinTest : public testing::Test {
 protected:
  Skin SkinWith(QColor left, QColor right) {
    QImage bitmap(kRowIconSize, kRowIconSize, QImage::Format_RGB32);
    bitmap.fill(right);
    bitmap.setPixelColor(0, 0, left);
    EXPECT_TRUE(bitmap.save(QString::fromStdString(folder_.File("icon.bmp"))));
    EXPECT_TRUE(registry_.WriteString(kHostKey, kValueImageDir, folder_.Path()));
    const auto answer = [](const char*, const char*) { return std::string("icon.bmp"); };
    return Skin({answer, answer}, HostConfig(registry_));
  }

  static int AlphaAt(const QPixmap& icon, int x) { return icon.toImage().pixelColor(x, 0).alpha(); }

  TempFolder folder_;
  Registry registry_{folder_.File("registry.reg")};
};

TEST_F(TreeSkinTest, BitmapIconsAreTransparentInTheColourOfTheirKind) {
  const TreeSkin skin = LoadTreeSkin(SkinWith(QColor(0xEC, 0xFF, 0xE6), QColor(0xE4, 0xF3, 0xFF)));
  for (const QPixmap& icon : {skin.channelIcon, skin.failingChannelIcon}) {
    EXPECT_EQ(AlphaAt(icon, 0), 0);
    EXPECT_EQ(AlphaAt(icon, 1), 255);
  }
  for (const QPixmap& icon : {skin.cabinetIcon, skin.unreadCabinetIcon}) {
    EXPECT_EQ(AlphaAt(icon, 0), 255);
    EXPECT_EQ(AlphaAt(icon, 1), 0);
  }
}

// Of the two files of the animation, each is there alone once.
TEST(NewPostAnimationTest, HasAFileForMessagesAndOneForPainting) {
  namespace fs = std::filesystem;
  const fs::path shipped = ShippedShareDir() + "/skin/light/Image/Skyfold_image/new_ani01.gif";
  const struct {
    const char* folder;
    bool byMessage;
  } cases[] = {{"Image/Image_KOR/Skyfold_image", true}, {"Image/Skyfold_image", false}};
  for (const auto& [folder, byMessage] : cases) {
    const TempFolder images;
    fs::create_directories(images.File(folder));
    fs::copy(shipped, images.File(folder));
    const Registry registry(images.File("registry.reg"));
    EXPECT_TRUE(registry.WriteString(kHostKey, kValueImageDir, images.Path()));
    const auto nothing = [](const char*, const char*) { return std::string(); };
    NewPostAnimation animation(Skin({nothing, nothing}, HostConfig(registry)), nullptr);
    EXPECT_EQ(animation.Frame(NewPostAnimation::kByMessage).isNull(), !byMessage);
    EXPECT_EQ(animation.Frame(NewPostAnimation::kByPainting).isNull(), byMessage);
  }
}

}  // namespace
}  // namespace feedloom
