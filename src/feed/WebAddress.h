// Addresses of feeds, as users type them and as pages announce them. All functions are pure.
#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Returns the address that a user means by `typedUtf8`: trimmed, preceded by `scheme` (ASCII) and
// "://" unless it contains "://" or begins with "feed:", and escaped as EscapedAddress does, so
// that any code page can hold it. Returns "" for a text of white space alone.
std::string CompleteFeedAddress(const std::string& typedUtf8, const std::string& scheme);

// Returns `utf8` as ASCII: each byte of a blank, a control character or a character outside ASCII
// is percent-encoded (RFC 3986).
std::string EscapedAddress(std::string_view utf8);

// Returns whether RequestAddress makes a request by http or https of `address`, which must name its
// scheme: http, https or feed. No other address may be taken from a document.
bool IsWebAddress(std::string_view address);

}  // namespace feedloom
