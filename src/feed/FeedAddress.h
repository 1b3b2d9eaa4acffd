#pragma once

#include <string>
#include <string_view>

namespace feedloom {

// Whether `address` begins with a scheme (RFC 3986, 3.1): "urn:" and "data:" as well as "http:".
bool HasScheme(std::string_view address);

// `reference`, found where `base` is the base address, as an absolute address (RFC 3986, 5). One
// with a scheme stays as it is written; so does one that cannot be resolved, without a base for
// instance. Texts are UTF-8. Pure; any thread.
std::string AbsoluteAddress(const std::string& base, const std::string& reference);

}  // namespace feedloom
