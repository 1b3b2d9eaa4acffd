// All names that the module asks the host for, as tables to walk.
#pragma once

#include <span>

namespace feedloom {

enum class SkinValueKind {
  File,           // a file in the image directory
  Image,          // an image file there
  ImageWithoutF,  // the same, named without its last letter "f"
  Button,         // an image file with one for each state beside it (vxctrl/ButtonImages.h)
  Number,
  Rect,  // "left,top,right,bottom" in pixels
  Font,  // "family,size in pixels"
};

struct SkinKey {
  const char* section;
  const char* key;
  SkinValueKind kind;
};

std::span<const char* const> TextKeys();  // of section kSectionTexts
std::span<const SkinKey> SkinKeys();

}  // namespace feedloom
