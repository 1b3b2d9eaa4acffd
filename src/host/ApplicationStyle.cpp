#include "host/ApplicationStyle.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QToolTip>

#include "look/SkinFont.h"
#include "look/SkinPalette.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "text/Text.h"

namespace feedloom {

ApplicationStyle::ApplicationStyle(const Skin& skin) {
  // Other styles ignore the palette in some controls.
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
  // Without a translator the toolkit's texts are English.
  if (toolkitTexts_.load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(&toolkitTexts_);
  }
}

}  // namespace feedloom
