#include "ui/tree/TreeSkin.h"

#include <QPainter>

#include "skin/Keys.h"

namespace feedloom {
namespace {

constexpr QColor kChannelColor(0x5B, 0x8D, 0xB8);
constexpr QColor kFailingColor(0xC8, 0x4A, 0x3A);
constexpr QColor kCabinetColor(0x9A, 0x7B, 0x4F);
constexpr QColor kUnreadCabinetColor(0xD0, 0x8A, 0x20);

// Of the cursor's image, where the tip of the hand's finger is.
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

QPixmap LoadIcon(const Skin& skin, const char* key, QColor builtInColor) {
  const QPixmap icon = LoadSkinImage(skin, kSectionLeft, key);
  return icon.isNull() ? BuiltInIcon(builtInColor) : icon;
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
          .channelIcon = LoadIcon(skin, kImageRowIcon1, kChannelColor),
          .failingChannelIcon = LoadIcon(skin, kImageRowIcon2, kFailingColor),
          .cabinetIcon = LoadIcon(skin, kImageRowIcon3, kCabinetColor),
          .unreadCabinetIcon = LoadIcon(skin, kImageRowIcon4, kUnreadCabinetColor),
          .rowCursor = LoadRowCursor(skin)};
}

}  // namespace feedloom
