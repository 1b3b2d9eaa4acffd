#include "search/TextQuery.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>

#include "search/Pieces.h"
#include "text/Text.h"

namespace feedloom {
namespace {

enum class Prefix { kTitle, kChannel, kAuthor, kSince, kUntil };

struct PrefixName {
  std::string_view name;
  Prefix prefix;
};

constexpr PrefixName kPrefixes[] = {
    {"title:", Prefix::kTitle},  {"제목:", Prefix::kTitle},    {"channel:", Prefix::kChannel},
    {"채널:", Prefix::kChannel}, {"author:", Prefix::kAuthor}, {"글쓴이:", Prefix::kAuthor},
    {"since:", Prefix::kSince},  {"부터:", Prefix::kSince},    {"until:", Prefix::kUntil},
    {"까지:", Prefix::kUntil},
};

bool BeginsWith(std::string_view text, std::string_view name) {
  return EqualsIgnoringAsciiCase(text.substr(0, name.size()), name);
}

std::optional<Prefix> TakePrefix(std::string_view& query) {
  for (const PrefixName& known : kPrefixes) {
    if (!BeginsWith(query, known.name)) continue;
    query.remove_prefix(known.name.size());
    return known.prefix;
  }
  return std::nullopt;
}

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// What stands in quotes, or up to the next blank.
struct Written {
  std::string_view text;
  bool isQuoted = false;
};

Written TakeWritten(std::string_view& query) {
  const bool isQuoted = query.starts_with('"');
  if (isQuoted) query.remove_prefix(1);
  const auto end = std::ranges::find_if(
      query, [isQuoted](char c) { return isQuoted ? c == '"' : IsBlank(c) || c == '"'; });
  const auto size = static_cast<std::size_t>(end - query.begin());
  const Written written{query.substr(0, size), isQuoted};
  query.remove_prefix(std::min(query.size(), size + (isQuoted ? 1 : 0)));
  return written;
}

QueryField FieldOf(std::optional<Prefix> prefix) {
  if (!prefix) return QueryField::kAny;
  if (*prefix == Prefix::kTitle) return QueryField::kTitle;
  return *prefix == Prefix::kChannel ? QueryField::kChannel : QueryField::kAuthor;
}

void Append(std::string_view text, QueryPart& part) {
  for (Piece& piece : PiecesOf(text))
    part.pieces.push_back({std::move(piece.folded), piece.isPart, piece.joinsPrevious});
}

unsigned Number(std::string_view digits) { return static_cast<unsigned>(ParseInt(digits)); }

// A year, a month or a day of the calendar, as "2006", "2006-05" or "2006-05-17".
bool IsDate(std::string_view text) {
  constexpr std::string_view kFirstDay = "0000-01-01";
  if (text.size() != 4 && text.size() != 7 && text.size() != 10) return false;
  const std::string day = std::string(text).append(kFirstDay.substr(text.size()));
  const bool isWritten = std::ranges::equal(
      day, kFirstDay, [](char c, char first) { return first == '-' ? c == '-' : IsDigit(c); });
  const std::string_view written = day;
  return isWritten && std::chrono::year_month_day(std::chrono::year(ParseInt(written.substr(0, 4))),
                                                  std::chrono::month(Number(written.substr(5, 2))),
                                                  std::chrono::day(Number(written.substr(8, 2))))
                          .ok();
}

// Less than every later date, and not less than every date that begins with `date`.
std::string Behind(std::string_view date) { return std::string(date) + '~'; }

class Reader {
 public:
  TextQuery Read(std::string_view query) {
    while (!query.empty() && result_.fault == QueryFault::kNone) {
      if (IsBlank(query.front())) {
        query.remove_prefix(1);
      } else {
        ReadPart(query);
      }
    }
    if (result_.fault == QueryFault::kNone && !HasWanted()) result_.fault = QueryFault::kNothing;
    if (result_.fault != QueryFault::kNone) return {.fault = result_.fault};
    return std::move(result_);
  }

 private:
  void ReadPart(std::string_view& query) {
    QueryPart part;
    part.isExcluded = query.starts_with('-');
    if (part.isExcluded) query.remove_prefix(1);
    const auto prefix = TakePrefix(query);
    const Written written = TakeWritten(query);
    if (prefix == Prefix::kSince || prefix == Prefix::kUntil) {
      ReadDate(written.text, *prefix);
    } else {
      part.field = FieldOf(prefix);
      part.isBeginning = TakeStar(query, written);
      Append(written.text, part);
      Add(std::move(part));
    }
  }

  static bool TakeStar(std::string_view& query, const Written& written) {
    if (!written.isQuoted) return written.text.ends_with('*');
    const bool isThere = query.starts_with('*');
    if (isThere) query.remove_prefix(1);
    return isThere;
  }

  void ReadDate(std::string_view date, Prefix prefix) {
    if (!IsDate(date)) {
      result_.fault = QueryFault::kDate;
    } else if (prefix == Prefix::kSince) {
      result_.since = date;
    } else {
      result_.until = Behind(date);
    }
  }

  void Add(QueryPart part) {
    if (part.pieces.empty()) return;
    pieces_ += part.pieces.size();
    if (pieces_ > kMostQueryPieces) result_.fault = QueryFault::kTooManyWords;
    result_.parts.push_back(std::move(part));
  }

  bool HasWanted() const {
    return std::ranges::any_of(result_.parts,
                               [](const QueryPart& part) { return !part.isExcluded; });
  }

  TextQuery result_;
  std::size_t pieces_ = 0;
};

}  // namespace

bool GoesOn(const QueryPart& part, std::size_t index) {
  return part.isBeginning && index + 1 == part.pieces.size() && !part.pieces[index].isPart;
}

TextQuery ParseTextQuery(std::string_view query) { return Reader().Read(query); }

}  // namespace feedloom
