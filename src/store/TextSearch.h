// Find posts and saved posts by their titles and texts. Any thread may call these functions; each
// call opens and closes the database and reports its own failures (Store.h).
#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "store/RowKey.h"
#include "store/Rows.h"
#include "store/Store.h"

namespace feedloom {

enum class HitOrder { kRelevance, kDate };

struct TextSearch {
  std::string query;                            // UTF-8, as ParseTextQuery reads it
  std::optional<RowKey> within = std::nullopt;  // a row of the tree; none: posts and saved posts
  HitOrder order = HitOrder::kRelevance;
  std::size_t most = 1000;
};

struct TextHits {
  std::vector<PostRow> posts = {};  // the best, or newest, first; with `ownerId` and `isSaved` set
  bool hasMore = false;             // more than `most` were found; the first of them are here
  bool wasDamaged = false;  // the index could not be read: the texts were, and it begins anew
};

// Posts with all words of the query in their title come first by relevance, then those with one,
// and of equal ones the newest. A query with a fault finds nothing. Returns none after a failure,
// and when `stop` was requested meanwhile.
std::optional<TextHits> SearchTexts(Store& store, const TextSearch& search,
                                    std::stop_token stop = {});

// How many unread posts the search finds, whatever its `most`. None as above.
std::optional<int> CountUnreadHits(Store& store, const TextSearch& search,
                                   std::stop_token stop = {});

}  // namespace feedloom
