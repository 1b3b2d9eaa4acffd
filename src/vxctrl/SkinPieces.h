// Skin images and places, and strips that are put together from three images.
#pragma once

#include <QPixmap>
#include <array>

#include "vxctrl/ButtonImages.h"

class QPainter;
class QRect;

namespace feedloom {

class Skin;

// The image file to take for this screen: "x@2x.png" beside "x.png", with four pixels for one,
// where a screen shows more than one for each of the toolkit's; else `path`.
QString SharpestFile(const QString& path);

// The image that the host names under this key; a null pixmap when there is none.
QPixmap LoadSkinImage(const Skin& skin, const char* section, const char* key);

// By ButtonState. For a state without a file the normal image stands in; all are null without that.
using StateImages = std::array<QPixmap, kButtonStateCount>;
StateImages LoadStateImages(const Skin& skin, const char* section, const char* key);
StateImages LoadStateImages(const std::string& imagePath);

// The rectangle under this key, as the host writes it down: an empty one when there is none.
QRect LoadSkinPlace(const Skin& skin, const char* section, const char* key);

// The piece's size on the screen.
QSize SizeOf(const QPixmap& piece);

// The size under these keys, in pixels; what the host does not give is the one of `otherwise`.
QSize LoadSkinSize(const Skin& skin, const char* section, const char* widthKey,
                   const char* heightKey, const QSize& otherwise);

struct ThreePieces {
  QPixmap left;
  QPixmap middle;
  QPixmap right;
};

ThreePieces LoadThreePieces(const Skin& skin, const char* section, const char* leftKey,
                            const char* middleKey, const char* rightKey);

// Fills `area`: the outer pieces at their own width, the middle one repeated between them, all
// stretched to the area's height.
void DrawThreePieces(QPainter& painter, const QRect& area, const ThreePieces& pieces);

}  // namespace feedloom
