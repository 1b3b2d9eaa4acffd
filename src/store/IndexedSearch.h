#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "store/TextRows.h"

namespace feedloom {

struct IndexedSearch {
  const TextQuery& query;
  const SearchedRows& rows;
  // Of TermExpressions, in the order in which their posts are wanted.
  const std::vector<std::string>& expressions;
  std::size_t most;  // so many hits of the index are enough
};

enum class IndexAnswer {
  kDone,
  kNotDone,  // the database cannot be read, which is reported, or `stop` was requested
  kDamaged,  // the index cannot be read, but perhaps the texts
};

// Calls `onHit` for the posts that meet the query, once each: all that wait to be indexed, and of
// those that are indexed `most` and one more, newest first within some thousand. The database has
// the tables of share/text_index.sql. Any thread.
IndexAnswer SearchIndex(Store& store, const IndexedSearch& search, const std::stop_token& stop,
                        const OnHit& onHit);

}  // namespace feedloom
