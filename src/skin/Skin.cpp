#include "skin/Skin.h"

#include "files/Path.h"
#include "text/Text.h"

namespace feedloom {

SkinRect ParseSkinRect(std::string_view value) {
  SkinRect rect;
  for (int* const field : {&rect.left, &rect.top, &rect.right, &rect.bottom}) {
    const auto comma = value.find(',');
    *field = ParseInt(value.substr(0, comma));
    if (comma == std::string_view::npos) break;
    value.remove_prefix(comma + 1);
  }
  return rect;
}

std::string Skin::GetText(const char* section, const char* key) const {
  return lookup_.HostGetText ? lookup_.HostGetText(section, key) : std::string();
}

std::string Skin::GetSkinValue(const char* section, const char* key) const {
  return lookup_.HostGetSkinValue ? lookup_.HostGetSkinValue(section, key) : std::string();
}

std::string Skin::GetImagePath(const char* section, const char* key) const {
  const std::string name = config_.GetCodePage().ToUtf8(GetSkinValue(section, key));
  return JoinPath(config_.GetImageDir(), name);
}

void Skin::GetSkinRect(SkinRect& rect, const char* section, const char* key) const {
  rect = ParseSkinRect(GetSkinValue(section, key));
}

}  // namespace feedloom
