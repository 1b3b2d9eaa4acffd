#pragma once

#include <functional>
#include <optional>
#include <stop_token>

#include "search/TextQuery.h"
#include "store/RowKey.h"
#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

// Which posts are read and held against a query.
struct ScannedPosts {
  std::optional<RowKey> within = std::nullopt;  // as TextSearch::within
  bool areUnreadOnly = false;
};

// Takes a post that meets the query and its relevance, which is greater than 0.
using OnHit = std::function<void(PostRow post, int relevance)>;

// Reads the texts themselves, some hundred posts a statement, and calls `onHit` for each post and
// saved post that meets `query`. Returns false after a failure, which is reported, and when `stop`
// was requested. Any thread.
bool ScanTexts(Store& store, const TextQuery& query, const ScannedPosts& posts,
               const std::stop_token& stop, const OnHit& onHit);

}  // namespace feedloom
