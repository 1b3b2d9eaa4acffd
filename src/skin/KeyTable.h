// Tables of all keys that the module looks up in the host's tables.
#pragma once

#include <span>

namespace feedloom {

enum class SkinValueKind {
  File,           // the path of a file, relative to the image directory
  Image,          // the path of an image file
  ImageWithoutF,  // the path of an image file without its last letter, "f"
  Button,         // the path of an image file, beside those of other states (look/ButtonImages.h)
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
