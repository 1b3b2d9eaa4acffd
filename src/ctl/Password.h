#pragma once

#include <optional>
#include <string>

namespace feedloom {

// Reads one line of standard input, a password in UTF-8. On a terminal asks for it with `prompt`,
// and shows nothing of what is typed. Returns nothing when there is no line, or one with a control
// character.
std::optional<std::string> ReadPassword(const std::string& prompt);

}  // namespace feedloom
