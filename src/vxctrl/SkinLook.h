// What the skinned controls have in common. Their colours are those of the palette, which a window
// of the skin has from LoadSkinPalette().
#pragma once

class QPainter;
class QPalette;
class QRect;
class QWidget;

namespace feedloom {

struct ThreePieces;

// Of an image that has none of its own for the disabled state.
inline constexpr double kDisabledOpacity = 0.5;

// The ring in a control of this area that has the keyboard, `inset` pixels inside its edge.
void DrawSkinFocus(QPainter& painter, const QPalette& palette, const QRect& area, int inset);

// The ground of an edit box or drop-down list: its pieces, paler when it is disabled, and the ring
// when it has the keyboard.
void DrawSkinField(QPainter& painter, const QWidget& field, const ThreePieces& pieces);

}  // namespace feedloom
