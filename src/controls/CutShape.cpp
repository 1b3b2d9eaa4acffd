#include "controls/CutShape.h"

#include <QColor>
#include <cmath>

namespace feedloom {
namespace {

// The side of the smallest square of device-independent pixels that has whole pixels on the screen.
// The toolkit rounds the place and the size of each part of a shape by itself: parts that begin
// elsewhere would leave gaps.
int CellSide(qreal scale) {
  constexpr int kLargest = 8;
  int side = 1;
  while (side < kLargest && std::abs(side * scale - std::round(side * scale)) > 0.01) ++side;
  return side;
}

bool IsAll(const QImage& image, const QRect& area, QRgb color) {
  const QRect inside = area & image.rect();
  for (int y = inside.top(); y <= inside.bottom(); ++y) {
    for (int x = inside.left(); x <= inside.right(); ++x) {
      if (image.pixel(x, y) != color) return false;
    }
  }
  return true;
}

}  // namespace

QRegion ShapeWithout(const QImage& image, const QColor& key, qreal scale) {
  const int side = CellSide(scale);
  const int pixels = qRound(side * image.devicePixelRatio());
  QRegion shape;
  for (int y = 0; y * pixels < image.height(); ++y) {
    for (int x = 0; x * pixels < image.width(); ++x) {
      if (IsAll(image, {x * pixels, y * pixels, pixels, pixels}, key.rgb())) continue;
      shape += QRect(x * side, y * side, side, side);
    }
  }
  return shape;
}

QImage FilledWithout(QImage image, const QColor& key) {
  const auto fill = [&](int x, int y, int step) {
    if (image.pixel(x, y) != key.rgb()) return;
    for (const QPoint beside : {QPoint(x - step, y), QPoint(x, y - step)}) {
      if (!image.valid(beside) || image.pixel(beside) == key.rgb()) continue;
      return image.setPixel(x, y, image.pixel(beside));
    }
  };
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) fill(x, y, 1);
  }
  for (int y = image.height() - 1; y >= 0; --y) {
    for (int x = image.width() - 1; x >= 0; --x) fill(x, y, -1);
  }
  return image;
}

}  // namespace feedloom
