#include "look/SkinText.h"

#include "look/QtText.h"
#include "skin/Keys.h"
#include "skin/Labels.h"
#include "skin/Skin.h"

namespace feedloom {

QString SkinText(const Skin& skin, const char* key) {
  return ToQString(skin.Config().GetCodePage(), skin.GetText(kSectionTexts, key));
}

QString SkinText(const Skin& skin, const Label& label) {
  return ToQString(skin.Config().GetCodePage(), GetLabel(skin, label));
}

}  // namespace feedloom
