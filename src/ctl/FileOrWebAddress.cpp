#include "ctl/FileOrWebAddress.h"

#include "feed/WebAddress.h"
#include "profile/Files.h"
#include "skin/Keys.h"

namespace feedloom {

std::string FileOrWebAddress(const Skin& skin, const std::string& typed) {
  if (IsRegularFile(typed)) return FileUrl(AbsolutePath(typed));
  return CompleteFeedAddress(typed, skin.GetText(kSectionTexts, kTextUrlScheme));
}

}  // namespace feedloom
