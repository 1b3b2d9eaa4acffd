// The pictures of sites' icons, which strangers make: PNG, JPEG, GIF, ICO and BMP, told by their
// first bytes and read by the toolkit's reader of that format alone. Any thread may call these
// functions.
#pragma once

#include <QImage>
#include <string>
#include <string_view>

namespace feedloom {

// Returns the picture in a square of at most 32 pixels, the rest of which is transparent. Null when
// `bytes` are no picture of these formats, when one has a side of more than 512 pixels, which is
// looked at before anything is decoded, and when nothing of it is visible.
QImage SiteIconImage(std::string_view bytes);

// Returns that picture as a PNG file, of which nothing is the stranger's but the pixels; empty
// without a picture.
std::string SiteIconFile(std::string_view bytes);

// Returns `icon`, a picture of SiteIconImage, so that it can be seen on a ground of this colour:
// one that is about as light gets a plate behind it, white on a dark ground and dark on a light
// one.
QImage OnGround(const QImage& icon, const QColor& ground);

}  // namespace feedloom
