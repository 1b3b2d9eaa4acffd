#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Returns the URL to request for `address` (UTF-8), as a feed's document, a list or the user spells
// it: without white space around it; "feed:" and "feed://" replaced by what stands behind them;
// with "http://" when it has no scheme; the host in its ASCII form (IDNA 2008, in any locale); and
// each byte percent-encoded that RFC 3986 does not allow in a path, a query or a fragment. Escapes
// stay as they are. Only an address that begins with "file:" leads to a local file. An address that
// cannot be made fit is returned as it is; its transfer fails. Pure; any thread may call it.
std::string RequestAddress(std::string_view address);

// Returns `address` without a "feed:" or "feed://" at its beginning, a view into it. Pure.
std::string_view WithoutFeedScheme(std::string_view address);

}  // namespace feedloom
