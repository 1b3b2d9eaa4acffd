// The host's texts as the toolkit's strings.
#pragma once

#include <QString>

namespace feedloom {

class Skin;
struct Label;

// The text of kSectionTexts under this key; empty when the host has none.
QString SkinText(const Skin& skin, const char* key);

// The host's text for the label, or else the built-in one.
QString SkinText(const Skin& skin, const Label& label);

}  // namespace feedloom
