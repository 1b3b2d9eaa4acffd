#pragma once

#include <string>

#include "skin/Skin.h"

namespace feedloom {

// The address of a feed as the user named it: the file: address of a file that exists, else the
// text itself, with the host's usual scheme in front when it has none. `typed` is UTF-8; the
// address is ASCII, other characters as "%XX" of their UTF-8.
std::string FeedAddress(const Skin& skin, const std::string& typed);

}  // namespace feedloom
