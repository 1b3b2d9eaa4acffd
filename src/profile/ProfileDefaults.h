// Default values of a new profile. Read the environment before other threads change it.
#pragma once

#include <string>

#include "text/CodePage.h"

namespace feedloom {

// The default language by the user's locale (POSIX: LC_ALL, else LC_MESSAGES, else LANG): "KOR" for
// Korean and for the locales C, POSIX or none, else "ENG".
std::string DefaultLanguage();

// The default code page by `language`: the Korean one for "KOR" (in upper or lower case), else
// UTF-8, which can represent every character.
CodePage DefaultCodePage(const std::string& language);

}  // namespace feedloom
