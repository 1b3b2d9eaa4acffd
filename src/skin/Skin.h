// The host's texts, image paths and positions. Section and key names are in Keys.h.
#pragma once

#include <string>
#include <string_view>

#include "skin/HostConfig.h"
#include "skin/HostLookup.h"

namespace feedloom {

// The corners of a rectangle; right and bottom are coordinates, not a size.
struct SkinRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool operator==(const SkinRect&) const = default;
};

// Parses up to four integers separated by ",": left, top, right, bottom. Each is read like atoi
// does, with white space around it. A missing field is 0; fields after the fourth are ignored.
SkinRect ParseSkinRect(std::string_view value);

// Calls the host's callbacks on each call and caches nothing. May be used on every thread on which
// the callbacks may be called.
class Skin {
 public:
  Skin(HostLookup lookup, HostConfig config)
      : lookup_(std::move(lookup)), config_(std::move(config)) {}

  // The host's value in the module's code page; empty when it has none.
  std::string GetText(const char* section, const char* key) const;
  std::string GetSkinValue(const char* section, const char* key) const;

  // The skin value as a path in the image directory; the directory itself without a value.
  std::string GetImagePath(const char* section, const char* key) const;

  // Sets `rect` to the parsed skin value; all fields are 0 without a value.
  void GetSkinRect(SkinRect& rect, const char* section, const char* key) const;

  const HostConfig& Config() const { return config_; }

 private:
  HostLookup lookup_;
  HostConfig config_;
};

}  // namespace feedloom
