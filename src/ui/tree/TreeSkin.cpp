#include "ui/tree/TreeSkin.h"

#include <QPainter>

#include "look/SkinPalette.h"
#include "skin/Colors.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr QColor kChannelColor(0x5B, 0x8D, 0xB8);
constexpr QColor kFailingColor(0xC8, 0x4A, 0x3A);
constexpr QColor kCabinetColor(0x9A, 0x7B, 0x4F);
constexpr QColor kUnreadCabinetColor(0xD0, 0x8A, 0x20);

// The hot spot of the cursor image: the tip of the hand's finger.
constexpr QPoint kHotSpot(8, 1);

QPixmap BuiltInIcon(QColor color) {
  QPixmap icon(kRowIconSize, kRowIconSize);
  icon.fill(Qt::transparent);
  QPainter painter(&icon);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(QRectF(2, 2, kRowIconSize - 4, kRowIconSize - 4), 2, 2);
  return icon;
}

// The colours that are transparent in images without an alpha channel.
constexpr QColor kChannelMask(0xEC, 0xFF, 0xE6);
constexpr QColor kCabinetMask(0xE4, 0xF3, 0xFF);

QPixmap LoadIcon(const Skin& skin, const char* key, QColor mask, QColor builtInColor) {
  QPixmap icon = LoadSkinImage(skin, kSectionLeft, key);
  if (icon.isNull()) return BuiltInIcon(builtInColor);
  if (!icon.hasAlphaChannel()) icon.setMask(icon.createMaskFromColor(mask));
  return icon;
}

QCursor LoadRowCursor(const Skin& skin) {
  const QPixmap image = LoadSkinImage(skin, kSectionLeft, kImageRowCursor);
  return image.isNull() ? QCursor(Qt::PointingHandCursor)
                        : QCursor(image, kHotSpot.x(), kHotSpot.y());
}

}  // namespace

TreeSkin LoadTreeSkin(const Skin& skin) {
  return {.folderHeader = LoadThreePieces(skin, kSectionLeft, kImageFolderLeft, kImageFolderMiddle,
                                          kImageFolderRight),
          .cabinetHeader = LoadThreePieces(skin, kSectionLeft, kImageCabinetLeft,
                                           kImageCabinetMiddle, kImageCabinetRight),
          .channelIcon = LoadIcon(skin, kImageRowIcon1, kChannelMask, kChannelColor),
          .failingChannelIcon = LoadIcon(skin, kImageRowIcon2, kChannelMask, kFailingColor),
          .cabinetIcon = LoadIcon(skin, kImageRowIcon3, kCabinetMask, kCabinetColor),
          .unreadCabinetIcon = LoadIcon(skin, kImageRowIcon4, kCabinetMask, kUnreadCabinetColor),
          .rowCursor = LoadRowCursor(skin),
          .newMark = SkinColor(skin, kColorNewMark)};
}

}  // namespace feedloom
