// Small operations on 8-bit texts that more than one folder needs. All are pure, and safe on texts
// of a multi-byte code page as long as what they look for is below '0' in ASCII or white space.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// `text` without the ASCII white space at its two ends; a view into `text`.
std::string_view Trim(std::string_view text);

// The decimal integer at the start of `text` by the rules of atoi(3): leading white space and one
// sign are read, the number ends at the first other character, no digit gives 0. A value out of
// range is held at +-1,000,000,000, so that callers can add a few of them.
int ParseInt(std::string_view text);

// A copy of `text` in which every `from` (not empty) is replaced by `to`, from left to right.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// `text` with the ASCII letters a-z in upper case.
std::string ToUpperAscii(std::string_view text);

// True when `text` has an ASCII control character: nothing of the kind belongs in a line of a
// protocol.
bool HasControls(std::string_view text);

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);

}  // namespace feedloom
