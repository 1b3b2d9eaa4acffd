#include "ui/list/FirstWords.h"

#include <QRegularExpression>
#include <QTextDocumentFragment>

#include "look/QtText.h"
#include "search/Marks.h"
#include "xml/HtmlText.h"

namespace feedloom {
namespace {

constexpr int kCharacters = 200;

constexpr auto kOptions =
    QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption;

// What follows a tag's name. What is not closed reaches to the end of the text: so no pattern looks
// at a place twice, whatever the text.
const QString kRestOfTag =
    QStringLiteral(R"((?:[^>"']++|"[^"]*+(?:"|\z)|'[^']*+(?:'|\z))*+(?:>|\z))");

// The tags within a word go without a trace; those of other elements part words.
QString WithoutTags(QString html) {
  static const QRegularExpression kUnseen(
      R"(<!--.*?(?:-->|\z)|<(script|style)\b.*?(?:</\1\s*>|\z)|</?(?:a|abbr|b|big|code|em|font|i|)"
      R"(ins|del|mark|q|s|small|span|strong|sub|sup|tt|u|wbr)(?![\w-]))" +
          kRestOfTag,
      kOptions);
  static const QRegularExpression kParting("<[a-z/!?]" + kRestOfTag, kOptions);
  return html.remove(kUnseen).replace(kParting, QStringLiteral(" "));
}

// The toolkit knows all named characters. It is given no tags: a few hundred of them, one in the
// other, would take it longer than a whole list may take to paint.
QString WithCharacters(QString text) {
  if (!text.contains('&')) return text;
  return QTextDocumentFragment::fromHtml(text.replace('<', QLatin1String("&lt;"))).toPlainText();
}

}  // namespace

QString FirstWords(CodePage codePage, std::string_view html) {
  constexpr std::size_t kBytes = 4'000;
  constexpr qsizetype kWritten = 5 * kCharacters;  // "&amp;" is one
  const QString text = WithoutTags(ToQString(codePage, html.substr(0, kBytes))).simplified();
  return WithCharacters(text.left(kWritten)).simplified().left(kCharacters);
}

QString WordsAroundFound(CodePage codePage, std::string_view html, const TextQuery& query) {
  constexpr std::size_t kBytes = 64'000;
  const std::string text = HtmlText(codePage.ToUtf8(html.substr(0, kBytes)), kBytes);
  return QString::fromStdString(TextAroundFirstMark(text, query, kCharacters));
}

}  // namespace feedloom
