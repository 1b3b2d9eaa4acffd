#include "ui/FoundWords.h"

#include <string_view>

#include "search/Marks.h"

namespace feedloom {

std::vector<FoundWord> FindWords(const QString& text, const TextQuery& query) {
  if (query.parts.empty()) return {};
  const QByteArray utf8 = text.toUtf8();
  std::vector<FoundWord> words;
  std::size_t byte = 0;
  qsizetype place = 0;
  // Each byte is decoded once, however many marks there are.
  const auto placeOf = [&](std::size_t next) {
    const auto from = static_cast<qsizetype>(byte);
    place +=
        QString::fromUtf8(QByteArrayView(utf8).sliced(from, static_cast<qsizetype>(next) - from))
            .size();
    byte = next;
    return place;
  };
  for (const Mark& mark : FindMarks(
           std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())), query)) {
    const qsizetype begin = placeOf(mark.begin);
    words.push_back({begin, placeOf(mark.end)});
  }
  return words;
}

}  // namespace feedloom
