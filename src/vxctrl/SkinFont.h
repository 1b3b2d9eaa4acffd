#pragma once

#include <QFont>

namespace feedloom {

class Skin;

// The font that the host names under this key, "family,size in pixels"; what it does not say is the
// program's own font's. A family that is not installed is replaced by a sans serif one.
QFont LoadSkinFont(const Skin& skin, const char* section, const char* key);

}  // namespace feedloom
