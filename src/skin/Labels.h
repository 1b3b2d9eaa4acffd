// The labels that the module has itself, in Korean; a host may give them in another language.
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

std::span<const Label> Labels();

// The host's text for the label, or else the built-in one; in the module's code page.
std::string GetLabel(const Skin& skin, const Label& label);

}  // namespace feedloom
