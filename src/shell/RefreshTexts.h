#pragma once

#include <string>

#include "refresh/RefreshSums.h"

namespace feedloom {

class Skin;

// What a run has brought, as a status text in the module's code page: "40 new posts, 3 not
// stored, 2 channels failed". Empty for a run without channels, and when the host lacks a text.
// Interface thread.
std::string RefreshSumsText(const Skin& skin, const RefreshSums& sums);

// "40 new posts"; empty when the host lacks the text.
std::string NewPostsText(const Skin& skin, int count);

}  // namespace feedloom
