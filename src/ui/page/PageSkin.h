#pragma once

#include <string>

namespace feedloom {

class Skin;

// The skin's image paths and texts in generated pages, in the module's code page.
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

// Reads the values from the host. Image paths are converted from the file system's UTF-8 bytes.
PageSkin LoadPageSkin(const Skin& skin);

}  // namespace feedloom
