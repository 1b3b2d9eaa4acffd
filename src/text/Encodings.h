// Texts of any encoding that the system knows, as UTF-8.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace feedloom {

// Gives the UTF-8 text that stands for the bytes at the beginning of `rest`, which are no
// character, and takes at least one byte from it.
using Replacement = std::function<std::string(std::string_view& rest)>;

// Converts `bytes`, which are in the encoding of that name (IANA's, any case), to UTF-8. Without
// `replacement`, returns nullopt at the first bytes that are no character. Returns nullopt for an
// encoding that the system does not have. Pure; any thread may call it.
std::optional<std::string> Utf8From(const std::string& encoding, std::string_view bytes,
                                    const Replacement& replacement = {});

// The length in bytes of the UTF-8 character that `text`, not empty, begins with, also when the
// character lacks bytes at its end: then the length of what is there. 1 for a byte that begins
// none.
std::size_t Utf8CharLength(std::string_view text);

}  // namespace feedloom
