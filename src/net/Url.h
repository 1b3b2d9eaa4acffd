// Parts of URLs, and the resolution of relative URLs. All functions are pure; any thread may call
// them. All texts are bytes; parts that are not ASCII are expected in UTF-8.
#pragma once

#include <string>

namespace feedloom {

// One part of the URL `address`, which may lack its scheme. Empty when `address` is not a URL.
std::string UrlScheme(const std::string& address);
std::string UrlHost(const std::string& address);
std::string UrlPath(const std::string& address);  // from its "/" on, "%XX" decoded

// The server of the URL `address`: "scheme://host", and ":port" unless it is the scheme's usual
// one. Empty when `address` is not a URL with a scheme and a host.
std::string UrlOrigin(const std::string& address);

// `address` without the user name and password before its host. A text that is not a URL counts as
// one without its scheme.
std::string UrlWithoutLogin(const std::string& address);

// Resolves `reference`, found in a document at `base`, to an absolute URL by RFC 3986. Bytes of its
// path and query that are not ASCII are percent-encoded. Empty when the result is not a URL, has a
// scheme that no transfer supports, or refers to the document itself ("", "#part").
std::string ResolveUrl(const std::string& base, const std::string& reference);

}  // namespace feedloom
