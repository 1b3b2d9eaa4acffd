#include "ui/page/PageSkin.h"

#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {

PageSkin LoadPageSkin(const Skin& skin) {
  const CodePage codePage = skin.Config().GetCodePage();
  const auto image = [&](const char* key) {
    return codePage.FromUtf8(skin.GetImagePath(kSectionHtml, key));
  };
  return {.titleImage = image(kImageTitle),
          .addButtonImage = image(kImageAddButton),
          .scrapButtonImage = image(kImageScrapButton),
          .bottomImage = image(kImageBottom),
          .saveImage = image(kImageSave),
          .playerBackground = image(kImagePlayerBackground),
          .addTooltip = skin.GetText(kSectionTexts, kTextAddTooltip),
          .scrapTooltip = skin.GetText(kSectionTexts, kTextScrapTooltip)};
}

}  // namespace feedloom
