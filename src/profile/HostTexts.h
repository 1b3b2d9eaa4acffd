#pragma once

#include <string>

#include "skin/HostConfig.h"
#include "skin/HostLookup.h"

namespace feedloom {

// Reads the host's ini files and returns the two callbacks that look values up in them, in the
// host's language: texts in the file `ownTexts` and then in string.ini, skin values in the skin's
// skin.ini and then in image.ini. Values are returned in the module's code page. Files, language
// and code page are read once, now; a missing file has no values. Any thread may call the
// callbacks, and `config` may be destroyed before them.
HostLookup ReadHostTexts(const HostConfig& config, const std::string& ownTexts = {});

}  // namespace feedloom
