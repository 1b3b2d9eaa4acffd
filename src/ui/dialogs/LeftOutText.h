#pragma once

#include <string>

#include "exchange/ImportValues.h"

namespace feedloom {

class Skin;

// Returns how many entries an import has left out, and the names and reasons of the first of them,
// a line each, in the module's code page. Empty when none was, and when the host has no text.
std::string LeftOutText(const Skin& skin, const ImportSums& sums);

}  // namespace feedloom
