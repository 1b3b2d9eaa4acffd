#include "ui/list/PostCells.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "vxctrl/QtText.h"

namespace feedloom {
namespace {

constexpr int kLongestTitle = 500;  // characters

// The first kLongestTitle characters of `text`.
std::string_view Beginning(CodePage codePage, std::string_view text) {
  std::size_t end = 0;
  for (int i = 0; i < kLongestTitle && end < text.size(); ++i) {
    end += codePage.CharLength(text.substr(end));
  }
  return text.substr(0, end);
}

}  // namespace

QString TitleCell(CodePage codePage, std::string_view title) {
  const std::string_view beginning = Beginning(codePage, title);
  QString text = ToQString(codePage, beginning);
  std::ranges::replace_if(
      text, [](QChar c) { return c.category() == QChar::Other_Control; }, QChar(' '));
  text = text.simplified();
  if (beginning.size() < title.size()) text += QChar(0x2026);
  return text;
}

QString DateCell(std::string_view stored) {
  constexpr std::size_t kDayLength = 10;  // "2008-05-01"
  int year = 0;
  int month = 0;
  int day = 0;
  const std::string text(stored.substr(0, kDayLength));
  const int numbers = std::sscanf(text.c_str(), "%4d-%2d-%2d", &year, &month, &day);
  const bool isDay =
      numbers == 3 && year >= 1970 && month >= 1 && month <= 12 && day >= 1 && day <= 31;
  return isDay ? QString::asprintf("%d-%02d-%02d", year, month, day) : QString();
}

}  // namespace feedloom
