// The colours of a skin. Texts and lines that the module draws itself lie on the skin's images, so
// they come with them.
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

std::span<const ColorKey> ColorKeys();

// The host's colour, written "#RRGGBB" in kSectionColors, as 0xRRGGBB; the built-in one when the
// host has none, or another text.
std::uint32_t GetColor(const Skin& skin, const ColorKey& color);

}  // namespace feedloom
