// Parts of URLs, and the resolution of relative URLs. All functions are pure; any thread may call
// them. All texts are bytes; parts that are not ASCII are expected in UTF-8.
#pragma once

#include <string>

namespace feedloom {

// One part of the URL `address`, which may lack its scheme. Empty when `address` is not a URL.
std::string UrlScheme(const std::string& address);
std::string UrlHost(const std::string& address);
std::string UrlPath(const std::string& address);  // from its "/" on, "%XX" decoded

// Resolves `reference`, found in a document at `base`, to an absolute URL by RFC 3986. Bytes of its
// path and query that are not ASCII are percent-encoded. Empty when the result is not a URL, has a
// scheme that no transfer supports, or refers to the document itself ("", "#part").
std::string ResolveUrl(const std::string& base, const std::string& reference);

}  // namespace feedloom
