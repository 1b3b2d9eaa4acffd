#pragma once

#include <string_view>

#include "platform/CodePage.h"

namespace feedloom {

// SQL's LIKE on texts of `codePage`: "%" matches any run of characters, "_" one character, and
// ASCII letters match without regard to case. Other characters match themselves only. It works on
// whole characters, so that no half of a double-byte one is taken for a letter. Pure; any thread.
bool LikeMatches(std::string_view pattern, std::string_view text, CodePage codePage);

}  // namespace feedloom
