// Images, positions and sizes of the skin, and strips drawn with three images. Interface thread.
#pragma once

#include <QPixmap>
#include <array>

#include "look/ButtonImages.h"

class QPainter;
class QRect;

namespace feedloom {

class Skin;

// The image file for the screen's device pixel ratio: "x@2x.png" beside "x.png", if that exists and
// the ratio is above 1, else `path`.
QString SharpestFile(const QString& path);

// The image under this key of the host; a null pixmap without a value or a readable file.
QPixmap LoadSkinImage(const Skin& skin, const char* section, const char* key);

// The images of a control, indexed by ButtonState. A state without a file has the normal image.
using StateImages = std::array<QPixmap, kButtonStateCount>;
StateImages LoadStateImages(const Skin& skin, const char* section, const char* key);
StateImages LoadStateImages(const std::string& imagePath);

// The rectangle under this key of the host, in pixels; empty without a value.
QRect LoadSkinPlace(const Skin& skin, const char* section, const char* key);

// The size of `piece` in device-independent pixels.
QSize SizeOf(const QPixmap& piece);

// The size under these two keys of the host, in pixels. A missing length, or one that is not above
// 0, is that of `otherwise`.
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
// stretched to the height of `area`. Nothing is drawn outside of it.
void DrawThreePieces(QPainter& painter, const QRect& area, const ThreePieces& pieces);

}  // namespace feedloom
