// What strangers' pictures become, and which are none.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QPainter>

#include "look/SiteIconImage.h"

namespace feedloom {

using namespace std::string_literals;

std::string FileOf(const char* format, QSize size, QColor color = Qt::red) {
  QImage image(size, QImage::Format_ARGB32);
  image.fill(color);
  image.setText("Comment", "a stranger's words");
  QBuffer buffer;
  EXPECT_TRUE(image.save(&buffer, format));
  return buffer.data().toStdString();
}

std::string LittleEndian(std::size_t number, int bytes) {
  std::string text;
  for (; bytes-- > 0; number >>= 8) text += static_cast<char>(number & 0xFF);
  return text;
}

// An ICO file with these pictures, which its directory says are as large as it can say.
std::string Ico(const std::vector<std::string>& pictures) {
  std::string head = "\0\0\1\0"s + LittleEndian(pictures.size(), 2), body;
  for (const std::string& picture : pictures) {
    const auto at = 6 + 16 * pictures.size() + body.size();
    const auto side = static_cast<unsigned char>(picture[19]);  // of a small PNG file
    head += LittleEndian(side, 1) + LittleEndian(side, 1) + "\0\0\1\0\x20\0"s +
            LittleEndian(picture.size(), 4) + LittleEndian(at, 4);
    body += picture;
  }
  return head + body;
}

TEST(SiteIconImage, IsReadOfEachFormatAndKeptAsAPictureOfOurOwn) {
  for (const char* format : {"png", "jpg", "bmp", "ico"}) {
    const QImage icon = SiteIconImage(SiteIconFile(FileOf(format, {16, 16})));
    EXPECT_EQ(icon.size(), QSize(16, 16)) << format;
    EXPECT_NEAR(icon.pixelColor(8, 8).red(), 255, 3) << format;
  }
  const std::string gif = "GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s;
  EXPECT_EQ(SiteIconImage(gif).pixelColor(0, 0), QColor(Qt::red));
  EXPECT_EQ(SiteIconFile(FileOf("png", {16, 16})).find("tEXt"), std::string::npos);
  const QImage wide = SiteIconImage(FileOf("png", {512, 128}));
  EXPECT_EQ(wide.size(), QSize(32, 32));
  EXPECT_TRUE(qAlpha(wide.pixel(16, 5)) == 0 && qAlpha(wide.pixel(16, 16)) == 255);
  const auto png = [](int side, Qt::GlobalColor color) {
    return FileOf("png", {side, side}, color);
  };
  const QImage best =
      SiteIconImage(Ico({png(16, Qt::red), png(64, Qt::red), png(48, Qt::blue), png(8, Qt::red)}));
  EXPECT_EQ(best.pixelColor(9, 9), QColor(Qt::blue));
}

TEST(SiteIconImage, StandsOnAPlateWhereItWouldNotBeSeen) {
  QImage icon = SiteIconImage(FileOf("png", {16, 16}, Qt::black));
  icon.setPixelColor(0, 8, Qt::transparent);
  const auto behind = [&](Qt::GlobalColor color) {
    return OnGround(icon, color).pixelColor(0, 8).name(QColor::HexArgb).toStdString();
  };
  EXPECT_EQ(behind(Qt::black) + behind(Qt::white), "#ffffffff#00000000");
  icon.fill(Qt::white);
  icon.setPixelColor(0, 8, Qt::transparent);
  EXPECT_EQ(behind(Qt::black) + behind(Qt::white), "#00000000#ff404040");
}

TEST(SiteIconImage, IsNoneOfOtherFormatsOfHostileSizesAndOfPicturesThatShowNothing) {
  const std::string png = FileOf("png", {16, 16});
  const std::string bomb = FileOf("png", {5000, 5000}), bitmap = FileOf("bmp", {600, 600});
  for (const std::string& bytes :
       {""s, "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"s, png.substr(0, 20),
        "\x89PNG\r\n\x1A\n"s + Ico({png}), FileOf("png", {513, 1}), FileOf("jpg", {1, 513}), bomb,
        bitmap, Ico({png, bomb}), Ico({bitmap.substr(14)}), Ico({}), Ico({png}).substr(0, 18),
        Ico(std::vector(33, png)), FileOf("png", {16, 16}, Qt::transparent)})
    EXPECT_TRUE(SiteIconImage(bytes).isNull() && SiteIconFile(bytes).empty()) << bytes.substr(0, 9);
}

}  // namespace feedloom
