// What is made of a skin's values: images, pieces, places, fonts, colours and texts.

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPainter>

#include "kit/ShippedSkin.h"
#include "skin/KeyTable.h"
#include "skin/Keys.h"
#include "vxctrl/PaneFrame.h"
#include "vxctrl/PrintColor.h"
#include "vxctrl/QtText.h"
#include "vxctrl/SkinFont.h"
#include "vxctrl/SkinPalette.h"

namespace feedloom {
namespace {

class SkinValues : public testing::Test {
 protected:
  // A skin whose host answers with `value` to everything.
  Skin SkinWith(const std::string& value) const {
    return {{{}, [value](auto, auto) { return value; }}, shipped_.Get().Config()};
  }
  static QPixmap Piece(int width, int height, const QColor& color) {
    QPixmap piece(width, height);
    piece.fill(color);
    return piece;
  }
  // The pixels of `draw` from `begin` in steps of `step`: their colours' letters, "." where it did
  // not draw.
  static std::string Pixels(const std::function<void(QPainter&)>& draw, QPoint begin, QPoint step) {
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    std::string pixels;
    for (QPoint at = begin; image.rect().contains(at); at += step) {
      const QColor color = image.pixelColor(at);
      pixels += color == Qt::red     ? 'r'
                : color == Qt::green ? 'g'
                : color == Qt::blue  ? 'b'
                : color == Qt::white ? '.'
                                     : '?';
    }
    return pixels;
  }

  const ShippedSkin shipped_;
};

TEST_F(SkinValues, EachShippedImageDecodesInOneSizeForAllStates) {
  for (const SkinKey& entry : SkinKeys()) {
    if (entry.kind != SkinValueKind::Image && entry.kind != SkinValueKind::Button) continue;
    const QSize size = LoadSkinImage(shipped_.Get(), entry.section, entry.key).size();
    EXPECT_FALSE(size.isEmpty()) << entry.key;
    if (entry.kind == SkinValueKind::Image) continue;
    for (const auto& path :
         ButtonImagePaths(shipped_.Get().GetImagePath(entry.section, entry.key))) {
      EXPECT_EQ(QImage(QString::fromStdString(path)).size(), size) << path;
    }
  }
}

TEST_F(SkinValues, ShippedImagesHaveTheSizesThatThePanesAndPagesCountOn) {
  const auto size = [&](const char* section, const char* key) {
    return LoadSkinImage(shipped_.Get(), section, key).size();
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

TEST_F(SkinValues, AMissingValueOrFileGivesWhatIsEmptyOrTheOtherSize) {
  for (const char* value : {"", "none.png", "0"}) {
    EXPECT_TRUE(LoadSkinImage(SkinWith(value), "S", "K").isNull());
    EXPECT_TRUE(LoadStateImages(SkinWith(value), "S", "K")[kButtonHover].isNull());
    EXPECT_TRUE(LoadSkinPlace(SkinWith(value), "S", "K").isEmpty());
    EXPECT_EQ(LoadSkinSize(SkinWith(value), "S", "W", "H", {5, 6}), QSize(5, 6));
  }
  EXPECT_EQ(LoadSkinPlace(SkinWith("1,2,11,22"), "S", "K"), QRect(1, 2, 10, 20));
  EXPECT_EQ(LoadSkinSize(SkinWith("1"), "S", "W", "H", {5, 6}), QSize(1, 1));
}

TEST_F(SkinValues, TheMiddlePieceFillsWhatTheOuterPiecesLeave) {
  const ThreePieces kAll = {Piece(4, 10, Qt::red), Piece(3, 10, Qt::green), Piece(6, 10, Qt::blue)};
  const std::tuple<ThreePieces, QRect, std::string> kStrips[] = {
      {kAll, {2, 0, 20, 20}, "..rrrrggggggggggbbbbbb.................."},
      {kAll, {2, 0, 8, 20}, "..rrbbbbbb.............................."},
      {kAll, {2, 0, 3, 20}, "..bbb..................................."},
      {kAll, {2, 0, 0, 20}, std::string(40, '.')},
      {{{}, kAll.middle, {}}, {0, 0, 40, 20}, std::string(40, 'g')},
      {{}, {0, 0, 40, 20}, std::string(40, '.')}};
  for (const auto& [pieces, area, row] : kStrips) {
    const auto draw = [&](QPainter& painter) { DrawThreePieces(painter, area, pieces); };
    EXPECT_EQ(Pixels(draw, {0, 0}, {1, 0}), row);
    EXPECT_EQ(Pixels(draw, {0, 19}, {1, 0}), row) << "stretched to twice its height";
  }
}

TEST_F(SkinValues, APanesFrameIsAroundItsViewAndBelowItsToolbar) {
  const PaneFrame frame = {.ground = Qt::white,
                           .line = Qt::blue,
                           .top = {{}, Piece(1, 4, Qt::green), {}},
                           .left = Piece(2, 1, Qt::red),
                           .right = Piece(3, 1, Qt::green),
                           .bottom = {{}, Piece(1, 2, Qt::red), {}}};
  const auto draw = [&](QPainter& painter) { DrawPaneFrame(painter, {1, 1, 38, 18}, 4, frame); };
  EXPECT_EQ(Pixels(draw, {0, 10}, {1, 0}), ".rr...b..........................b..ggg.");
  EXPECT_EQ(Pixels(draw, {20, 0}, {0, 1}), ".ggggb.......b...rr.");
  EXPECT_EQ(ViewArea({1, 1, 38, 18}, 4), QRect(7, 6, 26, 7));
  for (const PaneFrame& shipped :
       {LoadPaneFrame(shipped_.Get()), LoadBrowserPaneFrame(shipped_.Get())}) {
    EXPECT_EQ(shipped.ground, QColor(0xF4F7F8));
    EXPECT_EQ(shipped.line, QColor(0x768A8E));
    EXPECT_FALSE(shipped.top.middle.isNull() || shipped.left.isNull() || shipped.right.isNull() ||
                 shipped.bottom.middle.isNull());
  }
}

TEST_F(SkinValues, AFontIsFamilyAndPixelsOrElseTheProgramsOwn) {
  const QFont own = QGuiApplication::font();
  const std::tuple<const char*, QString, int> kFonts[] = {
      {"NanumGothic, 15", "NanumGothic", 15},
      {"NanumGothic", "NanumGothic", own.pixelSize()},
      {"NanumGothic,-3", "NanumGothic", own.pixelSize()},
      {",15", own.family(), 15},
      {"", own.family(), own.pixelSize()}};
  for (const auto& [value, family, pixels] : kFonts) {
    const QFont font = LoadSkinFont(SkinWith(value), "S", "K");
    EXPECT_TRUE(font.family() == family && font.pixelSize() == pixels) << value;
    EXPECT_EQ(font.styleHint(), QFont::SansSerif);
  }
}

TEST_F(SkinValues, ThePaletteHasTheSkinsColors) {
  const QPalette palette = LoadSkinPalette(shipped_.Get());
  using P = QPalette;
  const P::ColorRole kRoles[] = {P::Window,    P::AlternateBase, P::ToolTipBase, P::Base,
                                 P::Highlight, P::WindowText,    P::Text,        P::PlaceholderText,
                                 P::Link,      P::LinkVisited};
  const QRgb kColors[] = {0xF4F7F8, 0xF4F7F8, 0xF4F7F8, 0xFFFFFF, 0xA9D4F2,
                          0x2B3A40, 0x2B3A40, 0x5A676D, 0x1F608E, 0x1F608E};
  for (int i = 0; i < 10; ++i)
    EXPECT_EQ(palette.color(P::Active, kRoles[i]), QColor(kColors[i])) << i;
  EXPECT_EQ(palette.color(P::Inactive, P::Highlight), QColor(0xC2D6E2));
  EXPECT_EQ(palette.color(P::Disabled, P::HighlightedText), QColor(0x5A676D));
}

TEST(QtTextTest, ATextComesThroughBothWaysAsFarAsTheCodePageHoldsIt) {
  const std::string korean = FromQString(CodePage::Korean(), QStringLiteral("똠방 😀"));
  EXPECT_EQ(korean, "\x8C\x63\xB9\xE6 ?");
  EXPECT_EQ(ToQString(CodePage::Korean(), korean), QStringLiteral("똠방 ?"));
  EXPECT_EQ(ToQString(CodePage::Utf8(), FromQString(CodePage::Utf8(), "😀")), "😀");
}

TEST(QtTextTest, ALineHoldsNoBreaksAndIsCutBetweenCharacters) {
  const std::pair<std::string, QString> kLines[] = {
      {"  first\r\n\tsecond \x01 third\x7f ", "first second third"},
      {{'a', '\0', 'b'}, "a b"},
      {"line\u2028paragraph\u2029next\u0085last", "line paragraph next last"},
      {" \n ", ""},
      {std::string(500, 'x'), QString(500, 'x')},
      {std::string(501, 'x'), QString(500, 'x') + "…"}};
  for (const auto& [text, line] : kLines) EXPECT_EQ(ToLine(CodePage::Utf8(), text), line);
  // The one-byte letter puts every double-byte character on an odd byte.
  const QString text = "x" + QString("글").repeated(50'000);
  EXPECT_EQ(ToLine(CodePage::Korean(), FromQString(CodePage::Korean(), text)),
            text.left(500) + "…");
  EXPECT_LT(ToLine(CodePage::Korean(), std::string(100'000, '\xFF')).size(), 1000);
}

}  // namespace
}  // namespace feedloom
