#pragma once

#include <string>

#include "skin/Skin.h"

namespace feedloom {

// Returns the address of the feed that the user calls `typed` (UTF-8): the file: address when such
// a file exists, else CompleteFeedAddress with the scheme of the `skin`.
std::string FileOrWebAddress(const Skin& skin, const std::string& typed);

}  // namespace feedloom
