#include "ui/list/PostCells.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "look/QtText.h"

namespace feedloom {
namespace {

constexpr std::size_t kDayLength = 10;  // "2008-05-01"

}  // namespace

QStringList SplitHeadings(CodePage codePage, std::string_view label) {
  constexpr std::size_t kMostBytes = 511;
  std::size_t end = 0;
  while (end < label.size()) {
    const std::size_t next = end + codePage.CharLength(label.substr(end));
    if (next > kMostBytes) break;
    end = next;
  }
  return ToQString(codePage, label.substr(0, end)).split('|');
}

QString DateCell(std::string_view stored) {
  int year = 0;
  int month = 0;
  int day = 0;
  const std::string text(stored.substr(0, kDayLength));
  const int numbers = std::sscanf(text.c_str(), "%4d-%2d-%2d", &year, &month, &day);
  const bool isDay =
      numbers == 3 && year >= 1970 && month >= 1 && month <= 12 && day >= 1 && day <= 31;
  return isDay ? QString::asprintf("%d-%02d-%02d", year, month, day) : QString();
}

QString DayAndTime(std::string_view stored) {
  constexpr std::size_t kTimeLength = 6;  // " 10:00"
  const QString day = DateCell(stored);
  const std::string_view time = stored.substr(std::min(stored.size(), kDayLength), kTimeLength);
  return day.isEmpty() ? day : day + QLatin1StringView(time.data(), static_cast<int>(time.size()));
}

}  // namespace feedloom
