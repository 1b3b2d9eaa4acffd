// Texts, image paths and positions, as the host provides them. Section and key names: Keys.h.
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

// Up to four integers split by ",": left, top, right, bottom, each read like atoi does with blanks
// around it. Missing fields are 0, more than four are ignored.
SkinRect ParseSkinRect(std::string_view value);

// Asks the host on each call and keeps nothing. Calls come from the threads that the host's
// callbacks allow.
class Skin {
 public:
  Skin(HostLookup lookup, HostConfig config)
      : lookup_(std::move(lookup)), config_(std::move(config)) {}

  // In the module's code page; empty when the host has no such value.
  std::string GetText(const char* section, const char* key) const;
  std::string GetSkinValue(const char* section, const char* key) const;

  // The image directory and the skin value in it; the directory alone when there is no such value.
  std::string GetImagePath(const char* section, const char* key) const;

  // Sets `rect` from the skin value, all zero when there is none.
  void GetSkinRect(SkinRect& rect, const char* section, const char* key) const;

  const HostConfig& Config() const { return config_; }

 private:
  HostLookup lookup_;
  HostConfig config_;
};

}  // namespace feedloom
