// The shape of a window that shows an image, one colour of which is no part of it. Pure functions.
#pragma once

#include <QImage>
#include <QRegion>

namespace feedloom {

// The part of a window that shows `image` in which not all pixels are of the colour `key`, in
// device-independent pixels. A screen with `scale` pixels for one of these shows no fraction of a
// pixel: there the part's edges lie where pixels begin, and it may be larger than the image.
QRegion ShapeWithout(const QImage& image, const QColor& key, qreal scale);

// `image` with each pixel of the colour `key` in the colour of one beside it. So nothing of `key`
// shows at an edge that the shape cannot follow, or where the image is drawn at another scale.
QImage FilledWithout(QImage image, const QColor& key);

}  // namespace feedloom
