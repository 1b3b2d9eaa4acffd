// The colours of a skin: those of texts and lines that the module draws on the skin's images.
#pragma once

#include <cstdint>
#include <span>

namespace feedloom {

class Skin;

struct ColorKey {
  const char* key;
  std::uint32_t builtIn;  // 0xRRGGBB
};

#define FEEDLOOM_COLOR(constant, key, builtIn) inline constexpr ColorKey constant{key, builtIn};
#include "skin/ColorKeys.def"
#undef FEEDLOOM_COLOR

// All colours.
std::span<const ColorKey> ColorKeys();

// The host's value for `color` in kSectionColors, "#RRGGBB", as 0xRRGGBB. Without a value of this
// form the built-in colour is returned.
std::uint32_t GetColor(const Skin& skin, const ColorKey& color);

}  // namespace feedloom
