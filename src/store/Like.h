#pragma once

#include <string_view>

#include "text/CodePage.h"

namespace feedloom {

// SQL's LIKE for texts in `codePage`: "%" matches any run of characters, "_" any one character, and
// ASCII letters match in either case. Compares whole characters, because the second byte of a
// double-byte character may be an ASCII letter. Pure; any thread.
bool LikeMatches(std::string_view pattern, std::string_view text, CodePage codePage);

}  // namespace feedloom
