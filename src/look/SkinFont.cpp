#include "look/SkinFont.h"

#include <QFontDatabase>

#include "look/QtText.h"
#include "skin/Skin.h"
#include "text/Text.h"

namespace feedloom {

QFont LoadSkinFont(const Skin& skin, const char* section, const char* key) {
  const std::string value = skin.GetSkinValue(section, key);
  const auto comma = value.find(',');
  const std::string family(Trim(std::string_view(value).substr(0, comma)));
  const int pixels = comma == std::string::npos ? 0 : ParseInt(value.substr(comma + 1));

  // The application's own font may be that of another language by now.
  QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
  if (!family.empty()) font.setFamily(ToQString(skin.Config().GetCodePage(), family));
  if (pixels > 0) font.setPixelSize(pixels);
  font.setStyleHint(QFont::SansSerif);
  return font;
}

}  // namespace feedloom
