// The skin's colours, as the toolkit's widgets take them.
#pragma once

#include <QPalette>

namespace feedloom {

class Skin;
struct ColorKey;

QColor SkinColor(const Skin& skin, const ColorKey& color);

// Of a window of the skin: what is drawn on its images and on plain ground has the colours that go
// with them, whatever the desktop's are. The ring around what has the keyboard takes that of links.
QPalette LoadSkinPalette(const Skin& skin);

}  // namespace feedloom
