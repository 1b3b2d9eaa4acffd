// What the skinned controls have in common. Their colours lie on the skin's images, so they do not
// follow the desktop's.
#pragma once

#include <QColor>

class QPainter;
class QRect;
class QWidget;

namespace feedloom {

struct ThreePieces;

inline constexpr QColor kSkinTextColor(0x2B, 0x3A, 0x40);
inline constexpr QColor kSkinDisabledTextColor(0x9A, 0xA8, 0xAD);
// Of an image that has none of its own for the disabled state.
inline constexpr double kDisabledOpacity = 0.5;

// The ring in a control of this area that has the keyboard, `inset` pixels inside its edge.
void DrawSkinFocus(QPainter& painter, const QRect& area, int inset);

// The ground of an edit box or drop-down list: its pieces, paler when it is disabled, and the ring
// when it has the keyboard.
void DrawSkinField(QPainter& painter, const QWidget& field, const ThreePieces& pieces);

}  // namespace feedloom
