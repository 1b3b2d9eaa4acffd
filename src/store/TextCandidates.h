#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "store/TextRows.h"

namespace feedloom {

// A post that the index names.
struct Candidate {
  int doc = 0;  // its number in the index
  bool isSaved = false;
  int postId = 0;
  std::string published;
};

// The next candidates behind `before`, or the first ones without it: those for which `expression`,
// of TermExpressions, is true and which `rows` and the dates of `query` let pass; those that were
// indexed last first, some thousand at most. None after a failure, which is reported to the
// connection.
std::optional<std::vector<Candidate>> FindCandidates(Connection& connection,
                                                     const std::string& expression,
                                                     const TextQuery& query,
                                                     const SearchedRows& rows,
                                                     std::optional<int> before);

// Reads the posts of `candidates`, in their order, and calls `onHit` for each that meets the query,
// until `onHit` returns false. Returns false after a failure and when `stop` was requested.
using OnWantedHit = std::function<bool(PostRow post, int relevance)>;
bool ReadCandidates(TextRows& texts, const std::vector<Candidate>& candidates,
                    const std::stop_token& stop, const OnWantedHit& onHit);

}  // namespace feedloom
