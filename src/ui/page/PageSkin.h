#pragma once

#include <string>

namespace feedloom {

class Skin;

// What the generated pages take from the skin, in the module's code page.
struct PageSkin {
  std::string titleImage;
  std::string addButtonImage;
  std::string scrapButtonImage;
  std::string bottomImage;
  std::string saveImage;
  std::string playerBackground;
  std::string addTooltip;
  std::string scrapTooltip;
};

// Asks the host afresh. Image paths are converted from the file system's bytes.
PageSkin LoadPageSkin(const Skin& skin);

}  // namespace feedloom
