// The skin's colours for the toolkit's widgets.
#pragma once

#include <QPalette>

namespace feedloom {

class Skin;
struct ColorKey;

QColor SkinColor(const Skin& skin, const ColorKey& color);

// The palette of windows with the skin's images. It replaces the desktop's colours, which might be
// unreadable on these images. The link colour is also that of the focus ring.
QPalette LoadSkinPalette(const Skin& skin);

}  // namespace feedloom
