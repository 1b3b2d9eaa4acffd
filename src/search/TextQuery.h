#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

enum class QueryField { kAny, kTitle, kChannel, kAuthor };

// One of the pieces that a part of a query looks for (Pieces.h).
struct QueryPiece {
  std::string folded;
  bool isPart = false;
  bool joinsPrevious = false;

  bool operator==(const QueryPiece&) const = default;
};

// A word, a phrase or the beginning of a word.
struct QueryPart {
  QueryField field = QueryField::kAny;
  bool isExcluded = false;
  bool isBeginning = false;             // the last piece, if a word, may be a word's beginning
  std::vector<QueryPiece> pieces = {};  // not empty; follow one another
};

// Whether the piece at `index` is the beginning of a word, which may go on.
bool GoesOn(const QueryPart& part, std::size_t index);

enum class QueryFault {
  kNone,
  kNothing,       // no word to look for
  kTooManyWords,  // more than kMostQueryPieces pieces
  kDate,          // what follows "since:" or "until:" is no date
};

inline constexpr std::size_t kMostQueryPieces = 200;

// What a user looks for: posts with each part that is not excluded and none that is.
struct TextQuery {
  QueryFault fault = QueryFault::kNone;
  std::vector<QueryPart> parts = {};
  // Publication dates as the store has them begin with a text that is not less than `since` and
  // less than `until`; empty ones ask for nothing.
  std::string since = {};
  std::string until = {};
};

// Reads `query`, UTF-8:
//   word          in titles and texts, in either case, with or without accents
//   "some words"  one behind the other; the last quote may be missing
//   wor*          words that begin so
//   title:word    in titles only; channel: in the channel's or cabinet's title, author: in the
//   authors -word         posts without it; stands before any of the above since:2006-05 posts of
//   that day, month or year, and later ones; until: and earlier ones
// A Korean word is found inside of others, as are those of other scripts without blanks. The fields
// have Korean names too: 제목, 채널, 글쓴이, 부터, 까지. A query with a fault has no parts. Pure;
// any thread.
TextQuery ParseTextQuery(std::string_view query);

}  // namespace feedloom
