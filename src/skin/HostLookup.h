#pragma once

#include <functional>
#include <string>

namespace feedloom {

// The host's two callbacks. Each returns the value under a section and a key in the module's code
// page, or an empty string when the host has no such value. An unset callback has no values.
struct HostLookup {
  std::function<std::string(const char* section, const char* key)> HostGetText;
  std::function<std::string(const char* section, const char* key)> HostGetSkinValue;
};

}  // namespace feedloom
