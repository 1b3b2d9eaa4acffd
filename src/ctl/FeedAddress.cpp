#include "ctl/FeedAddress.h"

#include <filesystem>

#include "profile/Files.h"
#include "skin/Keys.h"

namespace feedloom {

std::string FeedAddress(const Skin& skin, const std::string& typed) {
  constexpr const char* kSchemeMark = "://";
  if (typed.find(kSchemeMark) != std::string::npos) return typed;
  if (std::filesystem::is_regular_file(typed)) return FileUrl(AbsolutePath(typed));
  return skin.GetText(kSectionTexts, kTextUrlScheme) + kSchemeMark + typed;
}

}  // namespace feedloom
