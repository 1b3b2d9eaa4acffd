#include "ui/list/FirstWords.h"

#include <QTextDocumentFragment>

#include "look/QtText.h"

namespace feedloom {

QString FirstWords(CodePage codePage, std::string_view html) {
  constexpr std::size_t kBytes = 4'000;
  constexpr qsizetype kCharacters = 200;
  const QString begin = ToQString(codePage, html.substr(0, kBytes));
  QString text = QTextDocumentFragment::fromHtml(begin).toPlainText();
  text.remove(QChar::ObjectReplacementCharacter);
  return text.simplified().left(kCharacters);
}

}  // namespace feedloom
