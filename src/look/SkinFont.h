#pragma once

#include <QFont>

namespace feedloom {

class Skin;

// The font under this key of the host, "family,size in pixels". A missing family or size is that of
// the desktop's font. A family that is not installed is replaced by a sans-serif one.
QFont LoadSkinFont(const Skin& skin, const char* section, const char* key);

}  // namespace feedloom
