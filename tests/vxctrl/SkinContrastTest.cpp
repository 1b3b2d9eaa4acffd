// The shipped skins' texts can be read: WCAG 2, level AA, asks for a contrast of 4.5 to 1.

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QMargins>
#include <QPainter>
#include <QRegularExpression>
#include <cmath>

#include "kit/ShippedSkin.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "vxctrl/SkinPalette.h"
#include "vxctrl/SkinPieces.h"

namespace feedloom {
namespace {

constexpr double kReadable = 4.5;
constexpr QMargins kStrip(0, 3, 0, 3);  // the edges of a strip's middle piece, where no text is
constexpr QMargins kPlate(6, 4, 6, 4);  // the edges of a button

double Luminance(const QColor& color) {
  const auto part = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

class SkinContrastTest : public testing::TestWithParam<const char*> {
 protected:
  QColor Color(const ColorKey& key) const { return SkinColor(skin_, key); }

  // The least contrast of the text with a pixel of the image's area; clear ones show the window.
  double LeastContrast(const ColorKey& text, const std::string& path, QRect area) const {
    const QImage image(QString::fromStdString(path));
    QImage ground(image.size(), QImage::Format_RGB32);
    ground.fill(Color(kColorPaneGround));
    QPainter(&ground).drawImage(0, 0, image);
    double least = area.isEmpty() || image.isNull() ? 0 : 21;
    for (int i = 0; i < area.width() * area.height(); ++i) {
      const QPoint at = area.topLeft() + QPoint(i % area.width(), i / area.width());
      least = std::min(least, Contrast(Color(text), ground.pixelColor(at)));
    }
    return least;
  }
  void ExpectReadable(const ColorKey& text, const std::string& path, const QMargins& edge) const {
    const QRect area = QImage(QString::fromStdString(path)).rect().marginsRemoved(edge);
    EXPECT_GE(LeastContrast(text, path, area), kReadable) << text.key << " on " << path;
  }

  const ShippedSkin shipped_{"KOR", GetParam()};
  const Skin& skin_ = shipped_.Get();
};

INSTANTIATE_TEST_SUITE_P(Shipped, SkinContrastTest, testing::Values(kLightSkin, kDarkSkin),
                         [](const auto& skin) { return std::string(skin.param); });

TEST_P(SkinContrastTest, TextsCanBeReadOnColors) {
  const std::pair<ColorKey, std::vector<ColorKey>> kGrounds[] = {
      {kColorText, {kColorPaneGround, kColorListGround, kColorSelection, kColorSelectionPassive}},
      {kColorTextDisabled, {kColorPaneGround, kColorListGround}},
      {kColorLink, {kColorPaneGround, kColorListGround}},
      {kColorTreeText, {kColorTreeGround, kColorSelection, kColorSelectionPassive}}};
  for (const auto& [text, grounds] : kGrounds) {
    for (const ColorKey& ground : grounds) {
      EXPECT_GE(Contrast(Color(text), Color(ground)), kReadable)
          << text.key << " on " << ground.key;
    }
  }
}

TEST_P(SkinContrastTest, TextsCanBeReadOnStripsAndButtons) {
  const std::tuple<const char*, const char*, std::vector<ColorKey>> kStrips[] = {
      {kSectionLeft, kImageLeftTopMiddle, {kColorText}},
      {kSectionRightTopToolbar, kImageRightTopMiddle, {kColorText}},
      {kSectionRightBottom, kImageRightBottomMiddle, {kColorText}},
      {kSectionControls, kImageEditMiddle, {kColorText, kColorTextDisabled}},
      {kSectionControls, kImageComboMiddle, {kColorText, kColorTextDisabled}},
      {kSectionControls, kImagePopUpComboMiddle, {kColorText, kColorTextDisabled}},
      {kSectionLeft, kImageFolderMiddle, {kColorTreeText}},
      {kSectionLeft, kImageCabinetMiddle, {kColorTreeText}}};
  for (const auto& [section, key, texts] : kStrips) {
    for (const auto& text : texts) ExpectReadable(text, skin_.GetImagePath(section, key), kStrip);
  }
  const std::pair<const char*, std::vector<const char*>> kButtons[] = {
      {kSectionMsgBox, {kButtonYes, kButtonNo, kButtonOk, kButtonCancel}},
      {kSectionPanel, {kButtonPanelOk, kButtonPanelCancel, kButtonPanelTab1}},
      {kSectionDirectory, {kButtonDirectorySearch, kButtonDirectoryClose}}};
  for (const auto& [section, keys] : kButtons) {
    for (const char* key : keys) {
      const auto paths = ButtonImagePaths(skin_.GetImagePath(section, key));
      for (const std::string& path : paths) {
        ExpectReadable(path == paths[kButtonDisabled] ? kColorTextDisabled : kColorText, path,
                       kPlate);
      }
    }
  }
}

TEST_P(SkinContrastTest, EachTextOfAPageCanBeReadOnEachOfItsGrounds) {
  for (const char* name : {"rss_html/page.css", "rss_html/main.css"}) {
    QFile file(QString::fromStdString(skin_.Config().GetImageDir() + name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    // What follows "@layer" overrules a post's own colours.
    const QString style = QString::fromUtf8(file.readAll()).section("@layer", 0, 0);
    const auto colorsOf = [&](const QString& property) {
      std::vector<QColor> colors;
      const QRegularExpression value("[\\s;{]" + property + ":\\s*(#[0-9A-Fa-f]{6})");
      for (auto found = value.globalMatch(style); found.hasNext();)
        colors.emplace_back(found.next().captured(1));
      EXPECT_FALSE(colors.empty()) << name;
      return colors;
    };
    for (const QColor& ground : colorsOf("background(?:-color)?")) {
      for (const QColor& text : colorsOf("color"))
        EXPECT_GE(Contrast(text, ground), kReadable) << name << text.name().toStdString();
    }
  }
}

// The notice's window ends where its image is magenta: an edge mixed with it would be seen.
TEST_P(SkinContrastTest, TheNoticeIsReadableAndItsEdgeIsNotMixedWithTheColorKey) {
  const std::string path = skin_.Config().GetCurrentPath() + "/Image/Skyfold_image/announce_bg.bmp";
  for (const char* place : {kPlaceAnnounceCaption, kPlaceAnnounceCount}) {
    EXPECT_GE(LeastContrast(kColorText, path, LoadSkinPlace(skin_, kSectionAnnounce, place)),
              kReadable)
        << place;
  }
  int keyed = 0;
  const QImage image(QString::fromStdString(path));
  for (int i = 0; i < image.width() * image.height(); ++i) {
    const QColor color = image.pixelColor(i % image.width(), i / image.width());
    const bool isKey = color == QColor(0xFF, 0x00, 0xFF);
    keyed += isKey;
    EXPECT_TRUE(isKey || std::min(color.red(), color.blue()) - color.green() < 32) << i;
  }
  EXPECT_GT(keyed, 4 * 8);  // the four corners
}

}  // namespace
}  // namespace feedloom
