#include "ctl/FeedAddress.h"

#include "ingest/FeedAddress.h"
#include "profile/Files.h"
#include "skin/Keys.h"

namespace feedloom {

std::string FeedAddress(const Skin& skin, const std::string& typed) {
  if (IsRegularFile(typed)) return FileUrl(AbsolutePath(typed));
  return CompleteFeedAddress(typed, skin.GetText(kSectionTexts, kTextUrlScheme));
}

}  // namespace feedloom
