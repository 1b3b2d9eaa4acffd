// Small operations on 8-bit texts. All are pure; any thread may call them. They are safe on texts
// of a multi-byte code page as long as they search for white space or ASCII characters below '0'.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

constexpr unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// `text` without the ASCII white space at both ends. The result is a view into `text`.
std::string_view Trim(std::string_view text);

// The decimal integer at the start of `text`, as atoi(3) reads it: after white space and at most
// one sign, up to the first character that is no digit; 0 without a digit. A value below
// -1,000,000,000 or above 1,000,000,000 is clamped to that limit.
int ParseInt(std::string_view text);

// `text` with each `from`, which must not be empty, replaced by `to`, from left to right.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

// `text` with the ASCII letters a-z in upper case. Other bytes stay as they are.
std::string ToUpperAscii(std::string_view text);

// True when `text` contains an ASCII control character. Such a text must not become part of a line
// of HTTP.
bool HasControls(std::string_view text);

// True when `a` and `b` are equal except for the case of ASCII letters.
bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);

}  // namespace feedloom
