#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "kit/ShippedSkin.h"
#include "skin/KeyTable.h"
#include "skin/Keys.h"
#include "vxctrl/ButtonImages.h"
#include "vxctrl/SkinFont.h"
#include "vxctrl/SkinPieces.h"

namespace feedloom {
namespace {

QSize SizeOfImage(const std::string& path) {
  return QImage(QFile::decodeName(path.c_str())).size();
}

QPixmap Piece(int width, int height, const QColor& color) {
  QPixmap piece(width, height);
  piece.fill(color);
  return piece;
}

// A 20 pixels high picture in which `pieces` are drawn into `area`.
QImage Drawn(const QRect& area, const ThreePieces& pieces) {
  QImage image(40, 20, QImage::Format_ARGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  DrawThreePieces(painter, area, pieces);
  return image;
}

const ThreePieces& RedGreenBlue() {
  static const ThreePieces pieces = {.left = Piece(4, 10, Qt::red),
                                     .middle = Piece(3, 10, Qt::green),
                                     .right = Piece(6, 10, Qt::blue)};
  return pieces;
}

// What is drawn in row `y`, a letter a pixel.
std::string Row(const QImage& image, int y) {
  std::string row;
  for (int x = 0; x < image.width(); ++x) {
    const QColor color = image.pixelColor(x, y);
    row += color == Qt::red ? 'r' : color == Qt::green ? 'g' : color == Qt::blue ? 'b' : '.';
  }
  return row;
}

TEST(SkinPiecesTest, EachShippedImageDecodes) {
  const ShippedSkin shipped;
  for (const SkinKey& entry : SkinKeys()) {
    const std::string path = shipped.Get().GetImagePath(entry.section, entry.key);
    switch (entry.kind) {
      case SkinValueKind::Image:
        EXPECT_FALSE(LoadSkinImage(shipped.Get(), entry.section, entry.key).isNull()) << entry.key;
        break;
      case SkinValueKind::ImageWithoutF:
        EXPECT_FALSE(SizeOfImage(path + "f").isEmpty()) << entry.key;
        break;
      case SkinValueKind::Button:
        for (const std::string& state : ButtonImagePaths(path)) {
          EXPECT_FALSE(SizeOfImage(state).isEmpty()) << state;
          EXPECT_EQ(SizeOfImage(state), SizeOfImage(path)) << state;
        }
        break;
      default:
        break;
    }
  }
}

TEST(SkinPiecesTest, ShippedImagesHaveTheSizesThatThePanesAndPagesCountOn) {
  const ShippedSkin shipped;
  const auto size = [&](const char* section, const char* key) {
    return LoadSkinImage(shipped.Get(), section, key).size();
  };
  for (const char* icon : {kImageRowIcon1, kImageRowIcon2, kImageRowIcon3, kImageRowIcon4}) {
    EXPECT_EQ(size(kSectionLeft, icon), QSize(13, 13)) << icon;
  }
  EXPECT_EQ(size(kSectionHtml, kImageAddButton), QSize(18, 33));
  EXPECT_EQ(size(kSectionHtml, kImageScrapButton), QSize(18, 33));
  EXPECT_EQ(size(kSectionHtml, kImageSave), QSize(16, 29));
  EXPECT_EQ(size(kSectionHtml, kImageTitle).height(), 33);
  EXPECT_EQ(size(kSectionHtml, kImageBottom).height(), 29);
}

TEST(SkinPiecesTest, AMissingValueOrFileGivesANullImage) {
  const TempFolder folder;
  const Registry registry(folder.File("registry.reg"));
  EXPECT_TRUE(LoadSkinImage(Skin({}, HostConfig(registry)), "S", "K").isNull());
  const Skin naming(
      {.HostGetText = {}, .HostGetSkinValue = [](const char*, const char*) { return "none.png"; }},
      HostConfig(registry));
  EXPECT_TRUE(LoadSkinImage(naming, "S", "K").isNull());
}

TEST(SkinPiecesTest, TheMiddleFillsWhatTheOuterPiecesLeave) {
  const QImage image = Drawn({2, 0, 20, 20}, RedGreenBlue());
  const std::string row = "..rrrrggggggggggbbbbbb..................";
  EXPECT_EQ(Row(image, 0), row);
  EXPECT_EQ(Row(image, 19), row);  // stretched to twice its height
}

TEST(SkinPiecesTest, ANarrowAreaIsNotPaintedOver) {
  EXPECT_EQ(Row(Drawn({2, 0, 8, 20}, RedGreenBlue()), 0),
            "..rrbbbbbb..............................");
  EXPECT_EQ(Row(Drawn({2, 0, 3, 20}, RedGreenBlue()), 0),
            "..bbb...................................");
  EXPECT_EQ(Row(Drawn({2, 0, 0, 20}, RedGreenBlue()), 0), std::string(40, '.'));
}

TEST(SkinPiecesTest, PiecesThatAreMissingLeaveTheirPlaceToTheMiddle) {
  const ThreePieces pieces = {.left = {}, .middle = Piece(3, 10, Qt::green), .right = {}};
  EXPECT_EQ(Row(Drawn({0, 0, 40, 20}, pieces), 0), std::string(40, 'g'));
  EXPECT_EQ(Row(Drawn({0, 0, 40, 20}, {}), 0), std::string(40, '.'));
}

class SkinFontTest : public testing::Test {
 protected:
  QFont FontOf(const std::string& value) const {
    return LoadSkinFont(
        Skin({.HostGetText = {},
              .HostGetSkinValue = [value](const char*, const char*) { return value; }},
             HostConfig(registry_)),
        "S", "K");
  }

  const TempFolder folder_;
  const Registry registry_{folder_.File("registry.reg")};
};

TEST_F(SkinFontTest, TheValueNamesFamilyAndPixels) {
  const QFont font = FontOf("NanumGothic, 15");
  EXPECT_EQ(font.family(), "NanumGothic");
  EXPECT_EQ(font.pixelSize(), 15);
}

TEST_F(SkinFontTest, WhatTheValueDoesNotSayIsTheProgramsOwn) {
  const QFont own = QGuiApplication::font();
  EXPECT_EQ(FontOf("").family(), own.family());
  EXPECT_EQ(FontOf("").pointSize(), own.pointSize());
  EXPECT_EQ(FontOf("NanumGothic").pointSize(), own.pointSize());
  EXPECT_EQ(FontOf("NanumGothic,-3").pointSize(), own.pointSize());
  EXPECT_EQ(FontOf(",15").family(), own.family());
  EXPECT_EQ(FontOf(",15").pixelSize(), 15);
}

}  // namespace
}  // namespace feedloom
