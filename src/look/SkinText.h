// The host's texts as QString.
#pragma once

#include <QString>

namespace feedloom {

class Skin;
struct Label;

// The host's text under `key` in kSectionTexts; empty when it has none.
QString SkinText(const Skin& skin, const char* key);

// The host's text for `label`, or else the built-in one.
QString SkinText(const Skin& skin, const Label& label);

}  // namespace feedloom
