#pragma once

#include <functional>
#include <string>

namespace feedloom {

// The host's two callbacks. Each takes a section and a key and answers with a text in the module's
// code page, empty when the host has none. A callback that is not set counts as one that has none.
struct HostLookup {
  std::function<std::string(const char* section, const char* key)> HostGetText;
  std::function<std::string(const char* section, const char* key)> HostGetSkinValue;
};

}  // namespace feedloom
