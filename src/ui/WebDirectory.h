#pragma once

#include "skin/Keys.h"
#include "skin/Skin.h"

namespace feedloom {

// Whether the host names a web directory of feeds. What needs one is disabled otherwise. Interface
// thread.
inline bool HasWebDirectory(const Skin& skin) {
  return !skin.GetText(kSectionTexts, kTextDirectoryService).empty();
}

}  // namespace feedloom
