// Addresses of the web taken apart and put together. All are pure; any thread may call them.
#pragma once

#include <string>

namespace feedloom {

// The part of `address`, which may lack its scheme; empty when it is no address.
std::string UrlScheme(const std::string& address);
std::string UrlHost(const std::string& address);
std::string UrlPath(const std::string& address);  // from its "/" on, "%XX" decoded

// The address that `reference`, as a document at `base` writes it, stands for by RFC 3986; in its
// path and query, what is not ASCII stands as "%XX". Empty when the two make no address or one with
// a scheme that no transfer knows, and for a reference to the document itself ("", "#part").
std::string ResolveUrl(const std::string& base, const std::string& reference);

}  // namespace feedloom
