#pragma once

#include "skin/HostConfig.h"
#include "skin/HostLookup.h"

namespace feedloom {

// The two callbacks, answered in the host's language: texts from string.ini, skin values from the
// skin's own skin.ini and else from image.ini. The files, the language and the code page are read
// once, now; a file that is missing answers with empty texts. The callbacks may be called from any
// thread, and outlive `config`.
HostLookup ReadHostTexts(const HostConfig& config);

}  // namespace feedloom
