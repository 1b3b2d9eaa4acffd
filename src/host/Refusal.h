// Why the program does not show a profile, in words for the user (UTF-8).
#pragma once

#include <string>

#include "profile/Profile.h"

namespace feedloom {

struct Refusal {
  std::string told;   // on stderr, in English
  std::string shown;  // in a window, in the language of the profile or else of the locale
};

// The host's text under `textKey`, in which "%1" is the profile and "%2" is `who`.
Refusal ProfileRefusal(const char* textKey, const ProfilePaths& paths, const std::string& who = {});

// The refusal of a profile that cannot be opened for this reason (English): when it belongs to
// another user, that is the reason. Where its disk is full or read-only, that is said, too.
Refusal RefusalOf(const std::string& reason, const ProfilePaths& paths);

}  // namespace feedloom
