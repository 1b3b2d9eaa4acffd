#pragma once

#include "skin/HostConfig.h"
#include "skin/HostLookup.h"

namespace feedloom {

// The two callbacks, answered from string.ini and image.ini in the host's language. The files, the
// language and the code page are read once, now; a file that is missing answers with empty texts.
// The callbacks may be called from any thread, and outlive `config`.
HostLookup ReadHostTexts(const HostConfig& config);

}  // namespace feedloom
