#include "ctl/FeedAddress.h"

#include <fmt/core.h>

#include "profile/Files.h"
#include "skin/Keys.h"

namespace feedloom {

namespace {

// Stored addresses are in the module's code page, which lacks characters; ASCII is safe in all.
std::string WithoutBareBytes(std::string_view utf8) {
  std::string address;
  for (const char c : utf8) {
    const auto byte = static_cast<unsigned char>(c);
    address += byte < 0x80 ? std::string(1, c) : fmt::format("%{:02X}", byte);
  }
  return address;
}

}  // namespace

std::string FeedAddress(const Skin& skin, const std::string& typed) {
  constexpr const char* kSchemeMark = "://";
  if (typed.find(kSchemeMark) != std::string::npos) return WithoutBareBytes(typed);
  if (IsRegularFile(typed)) return FileUrl(AbsolutePath(typed));
  return WithoutBareBytes(skin.GetText(kSectionTexts, kTextUrlScheme) + kSchemeMark + typed);
}

}  // namespace feedloom
