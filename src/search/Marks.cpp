#include "search/Marks.h"

#include <algorithm>
#include <limits>

#include "search/Fold.h"
#include "search/Pieces.h"
#include "search/PostMatch.h"

namespace feedloom {
namespace {

constexpr std::size_t kMostBefore = 20;  // so that the mark is in sight in a narrow line, too

bool IsMarked(const QueryPart& part) {
  return !part.isExcluded && (part.field == QueryField::kAny || part.field == QueryField::kTitle);
}

std::vector<Mark> WithoutOverlaps(std::vector<Mark> marks) {
  std::ranges::sort(marks, {}, &Mark::begin);
  std::vector<Mark> merged;
  for (const Mark& mark : marks) {
    if (!merged.empty() && mark.begin < merged.back().end) {
      merged.back().end = std::max(merged.back().end, mark.end);
    } else {
      merged.push_back(mark);
    }
  }
  return merged;
}

// The place some `characters` characters before `at`, behind a blank if there is one.
std::size_t Before(std::string_view text, std::size_t at, std::size_t characters) {
  std::size_t begin = at;
  for (; begin > 0 && characters > 0; --characters) {
    do --begin;
    while (begin > 0 && (static_cast<unsigned char>(text[begin]) & 0xC0) == 0x80);
  }
  if (begin == 0) return 0;
  const std::size_t blank = text.substr(0, at).find(' ', begin);
  return blank == std::string_view::npos ? begin : blank + 1;
}

std::string_view FirstCharacters(std::string_view text, std::size_t characters) {
  std::size_t size = 0;
  for (; size < text.size() && characters > 0; --characters)
    size += FirstCharacter(text.substr(size)).size;
  return text.substr(0, size);
}

}  // namespace

std::vector<Mark> FindMarks(std::string_view text, const TextQuery& query) {
  const std::vector<Piece> pieces = PiecesOf(text);
  std::vector<Mark> marks;
  for (const QueryPart& part : query.parts) {
    if (!IsMarked(part)) continue;
    for (const std::size_t first : PlacesOf(part, pieces, std::numeric_limits<std::size_t>::max()))
      marks.push_back({pieces[first].begin, pieces[first + part.pieces.size() - 1].end});
  }
  return WithoutOverlaps(std::move(marks));
}

std::string TextAroundFirstMark(std::string_view text, const TextQuery& query,
                                std::size_t characters) {
  const std::vector<Mark> marks = FindMarks(text, query);
  const std::size_t before = std::min(characters / 4, kMostBefore);
  const std::size_t begin = marks.empty() ? 0 : Before(text, marks.front().begin, before);
  std::string around = begin > 0 ? "… " : "";
  return around.append(FirstCharacters(text.substr(begin), characters));
}

}  // namespace feedloom
