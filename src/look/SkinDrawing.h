// Drawing functions of the skinned controls. Colours come from the widget's palette, see
// LoadSkinPalette().
#pragma once

class QPainter;
class QPalette;
class QRect;
class QWidget;

namespace feedloom {

struct ThreePieces;

// The opacity of a disabled control's image that has no variant for this state.
inline constexpr double kDisabledOpacity = 0.5;

// Draws the focus ring, `inset` pixels inside the edge of `area`.
void DrawSkinFocus(QPainter& painter, const QPalette& palette, const QRect& area, int inset);

// Draws the background of an edit box or drop-down list: `pieces`, paler when `field` is disabled,
// and the focus ring when it has the focus.
void DrawSkinField(QPainter& painter, const QWidget& field, const ThreePieces& pieces);

}  // namespace feedloom
