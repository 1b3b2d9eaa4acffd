#include "look/QtText.h"

#include <algorithm>

namespace feedloom {
namespace {

constexpr int kLongestLine = 500;  // characters

std::string_view Beginning(CodePage codePage, std::string_view text) {
  std::size_t end = 0;
  for (int i = 0; i < kLongestLine && end < text.size(); ++i) {
    end += codePage.CharLength(text.substr(end));
  }
  return text.substr(0, end);
}

bool IsControl(QChar character) { return character.category() == QChar::Other_Control; }

}  // namespace

QString ToQString(CodePage codePage, std::string_view text) {
  return QString::fromStdString(codePage.ToUtf8(text));
}

QString ToLine(CodePage codePage, std::string_view text) {
  const std::string_view beginning = Beginning(codePage, text);
  QString line = ToQString(codePage, beginning);
  std::ranges::replace_if(line, IsControl, QChar(' '));
  line = line.simplified();
  if (beginning.size() < text.size()) line += QChar(0x2026);  // an ellipsis
  return line;
}

std::string FromQString(CodePage codePage, const QString& text) {
  return codePage.FromUtf8(text.toStdString());
}

}  // namespace feedloom
