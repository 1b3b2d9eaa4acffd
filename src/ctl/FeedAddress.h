#pragma once

#include <string>

#include "skin/Skin.h"

namespace feedloom {

// The address of a feed as the user named it: the file: address of a file that exists, else the
// text completed as CompleteFeedAddress does, with the host's usual scheme. `typed` is UTF-8.
std::string FeedAddress(const Skin& skin, const std::string& typed);

}  // namespace feedloom
