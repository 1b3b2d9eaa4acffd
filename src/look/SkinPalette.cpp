#include "look/SkinPalette.h"

#include "skin/Colors.h"

namespace feedloom {

QColor SkinColor(const Skin& skin, const ColorKey& color) { return QRgb{GetColor(skin, color)}; }

QPalette LoadSkinPalette(const Skin& skin) {
  const QColor ground = SkinColor(skin, kColorPaneGround);
  const QColor text = SkinColor(skin, kColorText);
  const QColor disabledText = SkinColor(skin, kColorTextDisabled);
  const QColor link = SkinColor(skin, kColorLink);

  QPalette palette(ground, ground);  // derives lighter and darker colours for frames
  palette.setColor(QPalette::Base, SkinColor(skin, kColorListGround));
  palette.setColor(QPalette::AlternateBase, ground);
  palette.setColor(QPalette::ToolTipBase, ground);
  palette.setColor(QPalette::Highlight, SkinColor(skin, kColorSelectionPassive));
  palette.setColor(QPalette::Active, QPalette::Highlight, SkinColor(skin, kColorSelection));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::HighlightedText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, disabledText);
  }
  palette.setColor(QPalette::PlaceholderText, disabledText);
  palette.setColor(QPalette::Link, link);
  palette.setColor(QPalette::LinkVisited, link);
  return palette;
}

}  // namespace feedloom
