// Addresses of feeds, as users type them and as pages announce them. All functions are pure.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// The address that a user means by `typedUtf8`: without the white space around it, and with
// `scheme` (ASCII) and "://" in front when it has no "://" of its own. Escaped, so that it can be
// kept as a text in any code page. A text of nothing but white space gives "".
std::string CompleteFeedAddress(const std::string& typedUtf8, const std::string& scheme);

// `utf8` in ASCII: other characters, blanks and control characters as "%XX" of their bytes.
std::string EscapedAddress(std::string_view utf8);

// True for the only addresses that may be taken from a document: http and https.
bool IsWebAddress(std::string_view address);

}  // namespace feedloom
