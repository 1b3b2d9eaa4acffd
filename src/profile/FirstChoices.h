// What a new profile begins with when its user has not said otherwise.
#pragma once

#include <string>

#include "platform/CodePage.h"

namespace feedloom {

// "KOR" or "ENG": by the language of the user's locale (POSIX: LC_ALL, else LC_MESSAGES, else
// LANG). Without one it is Korean.
std::string FirstLanguage();

// The Korean one for Korean; UTF-8, which loses no character, for everybody else.
CodePage FirstCodePage(const std::string& language);

}  // namespace feedloom
