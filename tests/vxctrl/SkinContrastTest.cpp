// The shipped skins' texts can be read.

#include <gtest/gtest.h>

#include <QColor>
#include <QFile>
#include <QImage>
#include <QMargins>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "kit/ShippedSkin.h"
#include "platform/Path.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "vxctrl/ButtonImages.h"
#include "vxctrl/SkinPieces.h"

namespace feedloom {
namespace {

constexpr double kReadable = 4.5;

// WCAG 2.
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

struct OnColor {
  ColorKey text;
  ColorKey ground;
};

constexpr OnColor kOnColors[] = {
    {kColorText, kColorPaneGround},    {kColorTextDisabled, kColorPaneGround},
    {kColorLink, kColorPaneGround},    {kColorTreeText, kColorTreeGround},
    {kColorTreeText, kColorSelection}, {kColorTreeText, kColorSelectionPassive},
    {kColorText, kColorListGround},    {kColorTextDisabled, kColorListGround},
    {kColorText, kColorSelection},     {kColorText, kColorSelectionPassive},
    {kColorLink, kColorListGround},
};

// A strip's middle piece, which is repeated below the text, but for its upper and lower edge.
constexpr QMargins kStrip(0, 3, 0, 3);

struct OnImage {
  ColorKey text;
  const char* section;
  const char* key;
};

constexpr OnImage kOnStrips[] = {
    {kColorText, kSectionLeft, kImageLeftTopMiddle},
    {kColorText, kSectionRightTopToolbar, kImageRightTopMiddle},
    {kColorText, kSectionRightBottom, kImageRightBottomMiddle},
    {kColorText, kSectionControls, kImageEditMiddle},
    {kColorTextDisabled, kSectionControls, kImageEditMiddle},
    {kColorText, kSectionControls, kImageComboMiddle},
    {kColorTextDisabled, kSectionControls, kImageComboMiddle},
    {kColorText, kSectionControls, kImagePopUpComboMiddle},
    {kColorTextDisabled, kSectionControls, kImagePopUpComboMiddle},
    {kColorTreeText, kSectionLeft, kImageFolderMiddle},
    {kColorTreeText, kSectionLeft, kImageCabinetMiddle},
};

// Plates with a text: those of message boxes and of dialogs, and the tabs.
constexpr QMargins kPlate(6, 4, 6, 4);

struct Plate {
  const char* section;
  const char* key;
};

constexpr Plate kPlates[] = {
    {kSectionMsgBox, kButtonYes},
    {kSectionMsgBox, kButtonNo},
    {kSectionMsgBox, kButtonOk},
    {kSectionMsgBox, kButtonCancel},
    {kSectionPanel, kButtonPanelOk},
    {kSectionPanel, kButtonPanelCancel},
    {kSectionPanel, kButtonPanelTab1},
    {kSectionDirectory, kButtonDirectorySearch},
    {kSectionDirectory, kButtonDirectoryClose},
};

// The colours behind this property in a style sheet of pages, but for those that overrule a post's.
std::vector<QColor> ColorsOf(const std::string& path, const QString& property) {
  QFile file(QFile::decodeName(path.c_str()));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
  const QString style = QString::fromUtf8(file.readAll()).section("@layer", 0, 0);
  std::vector<QColor> colors;
  const QRegularExpression value("[\\s;{]" + property + ":\\s*(#[0-9A-Fa-f]{6})");
  for (auto found = value.globalMatch(style); found.hasNext();) {
    colors.emplace_back(found.next().captured(1));
  }
  EXPECT_FALSE(colors.empty()) << path << " " << property.toStdString();
  return colors;
}

class SkinContrastTest : public ::testing::TestWithParam<const char*> {
 protected:
  QColor Color(const ColorKey& key) const { return QColor(GetColor(shipped_.Get(), key)); }

  // The pixels of the image's area, on the windows' ground where they are clear.
  QImage Area(const std::string& path, const QRect& area) const {
    const QImage image(QFile::decodeName(path.c_str()));
    EXPECT_FALSE(image.isNull()) << path;
    QImage ground(image.size(), QImage::Format_RGB32);
    ground.fill(Color(kColorPaneGround));
    QPainter(&ground).drawImage(0, 0, image);
    return ground.copy(area);
  }
  QImage Area(const std::string& path, const QMargins& edge) const {
    return Area(path, QImage(QFile::decodeName(path.c_str())).rect().marginsRemoved(edge));
  }

  double LeastContrast(const ColorKey& text, const QImage& area) const {
    double least = area.isNull() ? 0 : 21;
    for (int y = 0; y < area.height(); ++y) {
      for (int x = 0; x < area.width(); ++x) {
        least = std::min(least, Contrast(Color(text), area.pixelColor(x, y)));
      }
    }
    return least;
  }

  const ShippedSkin shipped_{"KOR", GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Shipped, SkinContrastTest, ::testing::Values(kLightSkin, kDarkSkin),
                         [](const auto& skin) { return std::string(skin.param); });

TEST_P(SkinContrastTest, TextsCanBeReadOnColors) {
  for (const auto& [text, ground] : kOnColors) {
    EXPECT_GE(Contrast(Color(text), Color(ground)), kReadable) << text.key << " on " << ground.key;
  }
}

TEST_P(SkinContrastTest, TextsCanBeReadOnStrips) {
  for (const auto& [text, section, key] : kOnStrips) {
    const std::string path = shipped_.Get().GetImagePath(section, key);
    EXPECT_GE(LeastContrast(text, Area(path, kStrip)), kReadable) << text.key << " on " << path;
  }
}

TEST_P(SkinContrastTest, TextsCanBeReadOnPlatesInEachState) {
  for (const auto& [section, key] : kPlates) {
    const auto paths = ButtonImagePaths(shipped_.Get().GetImagePath(section, key));
    for (int state = 0; state < kButtonStateCount; ++state) {
      const ColorKey& text = state == kButtonDisabled ? kColorTextDisabled : kColorText;
      const std::string& path = paths[static_cast<std::size_t>(state)];
      EXPECT_GE(LeastContrast(text, Area(path, kPlate)), kReadable) << text.key << " on " << path;
    }
  }
}

TEST_P(SkinContrastTest, EachTextOfAPageCanBeReadOnEachOfItsGrounds) {
  for (const char* name : {"rss_html/page.css", "rss_html/main.css"}) {
    const std::string path = JoinPath(shipped_.Get().Config().GetImageDir(), name);
    for (const QColor& ground : ColorsOf(path, "background(?:-color)?")) {
      for (const QColor& text : ColorsOf(path, "color")) {
        EXPECT_GE(Contrast(text, ground), kReadable)
            << name << ": " << text.name().toStdString() << " on " << ground.name().toStdString();
      }
    }
  }
}

// The colour key is magenta: an edge that is mixed with it would be seen around the window.
TEST_P(SkinContrastTest, TheNoticeIsReadableAndItsEdgeIsNotMixedWithTheColorKey) {
  const std::string path =
      JoinPath(shipped_.Get().Config().GetCurrentPath(), "Image/Skyfold_image/announce_bg.bmp");
  for (const char* place : {kPlaceAnnounceCaption, kPlaceAnnounceCount}) {
    const QRect area = LoadSkinPlace(shipped_.Get(), kSectionAnnounce, place);
    EXPECT_GE(LeastContrast(kColorText, Area(path, area)), kReadable) << place;
  }
  int keyed = 0;
  const QImage image(QFile::decodeName(path.c_str()));
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      const bool isKey = color == QColor(0xFF, 0x00, 0xFF);
      keyed += isKey;
      const int tint = std::min(color.red(), color.blue()) - color.green();
      EXPECT_TRUE(isKey || tint < 32) << x << ", " << y << " is " << color.name().toStdString();
    }
  }
  EXPECT_GT(keyed, 4 * 8);  // the four corners
}

}  // namespace
}  // namespace feedloom
