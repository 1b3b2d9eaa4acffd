#include "skin/Colors.h"

#include <charconv>
#include <string>
#include <string_view>

#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {
namespace {

constexpr ColorKey kColors[] = {
#define FEEDLOOM_COLOR(constant, key, builtIn) constant,
#include "skin/ColorKeys.def"
#undef FEEDLOOM_COLOR
};

}  // namespace

std::span<const ColorKey> ColorKeys() { return kColors; }

std::uint32_t GetColor(const Skin& skin, const ColorKey& color) {
  constexpr std::size_t kLength = 7;
  constexpr int kBase = 16;
  const std::string value = skin.GetSkinValue(kSectionColors, color.key);
  if (value.size() != kLength || value[0] != '#') return color.builtIn;
  std::uint32_t rgb = 0;
  const char* const end = value.data() + kLength;
  const auto read = std::from_chars(value.data() + 1, end, rgb, kBase);
  return read.ptr == end ? rgb : color.builtIn;
}

}  // namespace feedloom
