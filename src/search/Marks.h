// Where the words of a query stand in a text that a view shows. Pure; any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "search/TextQuery.h"

namespace feedloom {

struct Mark {
  std::size_t begin = 0;  // in bytes of the text
  std::size_t end = 0;

  bool operator==(const Mark&) const = default;
};

// The places in `text`, UTF-8, at which the wanted words and phrases of `query` stand, in their
// order; no two overlap. Channels and authors that the query names have none.
std::vector<Mark> FindMarks(std::string_view text, const TextQuery& query);

// About `characters` characters of `text`, UTF-8 of one line, among which is the first mark, with
// "… " in front when it does not begin there; the beginning of `text` when it has no mark.
std::string TextAroundFirstMark(std::string_view text, const TextQuery& query,
                                std::size_t characters);

}  // namespace feedloom
