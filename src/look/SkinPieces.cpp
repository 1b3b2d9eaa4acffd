#include "look/SkinPieces.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPainter>

#include "skin/Skin.h"
#include "text/Text.h"

namespace feedloom {
namespace {

void DrawMiddle(QPainter& painter, const QRect& area, const QPixmap& piece) {
  if (area.width() <= 0 || piece.isNull()) return;
  const QSize size(piece.width(), qRound(area.height() * piece.devicePixelRatio()));
  const bool fits = piece.size() == size;
  painter.drawTiledPixmap(area, fits ? piece : piece.scaled(size));
}

QPixmap ImageOf(const std::string& path) {
  return QPixmap(SharpestFile(QFile::decodeName(path.c_str())));
}

}  // namespace

QString SharpestFile(const QString& path) {
  if (qGuiApp->devicePixelRatio() <= 1) return path;
  const QFileInfo file(path);
  const QString finer =
      QStringLiteral("%1/%2@2x.%3").arg(file.path(), file.completeBaseName(), file.suffix());
  return QFileInfo::exists(finer) ? finer : path;
}

QPixmap LoadSkinImage(const Skin& skin, const char* section, const char* key) {
  if (skin.GetSkinValue(section, key).empty()) return {};
  return ImageOf(skin.GetImagePath(section, key));
}

StateImages LoadStateImages(const Skin& skin, const char* section, const char* key) {
  if (skin.GetSkinValue(section, key).empty()) return {};
  return LoadStateImages(skin.GetImagePath(section, key));
}

StateImages LoadStateImages(const std::string& imagePath) {
  StateImages images;
  const auto paths = ButtonImagePaths(imagePath);
  for (std::size_t state = 0; state < paths.size(); ++state) {
    images[state] = ImageOf(paths[state]);
    if (images[state].isNull()) images[state] = images[kButtonNormal];
  }
  return images;
}

QRect LoadSkinPlace(const Skin& skin, const char* section, const char* key) {
  SkinRect corners;
  skin.GetSkinRect(corners, section, key);
  return {corners.left, corners.top, corners.right - corners.left, corners.bottom - corners.top};
}

QSize SizeOf(const QPixmap& piece) { return piece.deviceIndependentSize().toSize(); }

QSize LoadSkinSize(const Skin& skin, const char* section, const char* widthKey,
                   const char* heightKey, const QSize& otherwise) {
  const auto length = [&](const char* key, int fallback) {
    const int given = ParseInt(skin.GetSkinValue(section, key));
    return given > 0 ? given : fallback;
  };
  return {length(widthKey, otherwise.width()), length(heightKey, otherwise.height())};
}

ThreePieces LoadThreePieces(const Skin& skin, const char* section, const char* leftKey,
                            const char* middleKey, const char* rightKey) {
  return {.left = LoadSkinImage(skin, section, leftKey),
          .middle = LoadSkinImage(skin, section, middleKey),
          .right = LoadSkinImage(skin, section, rightKey)};
}

void DrawThreePieces(QPainter& painter, const QRect& area, const ThreePieces& pieces) {
  if (area.isEmpty()) return;
  painter.save();
  painter.setClipRect(area, Qt::IntersectClip);  // `area` may be narrower than the outer pieces
  const QRect left(area.topLeft(), QSize(SizeOf(pieces.left).width(), area.height()));
  const int rightWidth = SizeOf(pieces.right).width();
  const QRect right(area.right() + 1 - rightWidth, area.top(), rightWidth, area.height());
  DrawMiddle(painter, area.adjusted(left.width(), 0, -right.width(), 0), pieces.middle);
  painter.drawPixmap(left, pieces.left);
  painter.drawPixmap(right, pieces.right);
  painter.restore();
}

}  // namespace feedloom
