// The default language of a new profile.
#pragma once

#include <string>

namespace feedloom {

// The default language by the user's locale (POSIX: LC_ALL, else LC_MESSAGES, else LANG): "KOR" for
// Korean, else "ENG". Reads the environment: call it before other threads change that.
std::string DefaultLanguage();

}  // namespace feedloom
