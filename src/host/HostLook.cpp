#include "host/HostLook.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QToolTip>

#include "platform/Text.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "vxctrl/SkinFont.h"
#include "vxctrl/SkinPalette.h"

namespace feedloom {

HostLook::HostLook(const Skin& skin) {
  // The one style that follows a palette in everything that it draws.
  QApplication::setStyle(QStringLiteral("Fusion"));
  const QPalette colors = LoadSkinPalette(skin);
  QApplication::setPalette(colors);
  QToolTip::setPalette(colors);
  const QFont font = LoadSkinFont(skin, kSectionFont, kFontDefault);
  QApplication::setFont(font);
  QToolTip::setFont(font);

  const bool isKorean = EqualsIgnoringAsciiCase(skin.Config().GetHostLanguage(), "KOR");
  const QLocale locale(isKorean ? QLocale::Korean : QLocale::English);
  QLocale::setDefault(locale);
  // English is what the toolkit speaks without one.
  if (toolkitTexts_.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkitTexts_);
  }
}

}  // namespace feedloom
