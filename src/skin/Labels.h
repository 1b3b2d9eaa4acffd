// Labels with a built-in Korean text, which the host may override.
#pragma once

#include <span>
#include <string>

namespace feedloom {

class Skin;

struct Label {
  const char* key;      // of section kSectionTexts
  const char* builtIn;  // UTF-8
};

#define FEEDLOOM_LABEL(constant, key, builtIn) inline constexpr Label constant{key, builtIn};
#include "skin/LabelKeys.def"
#undef FEEDLOOM_LABEL

// All labels.
std::span<const Label> Labels();

// The host's text for `label`, or else the built-in one, in the module's code page.
std::string GetLabel(const Skin& skin, const Label& label);

}  // namespace feedloom
