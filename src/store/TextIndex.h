// The index of the texts of posts and saved posts, in the tables of share/text_index.sql, whose
// triggers note which texts wait for it. Any thread may call these functions; each call opens and
// closes the database and reports its own failures (Store.h).
#pragma once

#include <optional>

#include "store/Store.h"

namespace feedloom {

// False also after a failure.
bool KeepsTextIndex(Store& store);

struct IndexState {
  int indexed = 0;
  int waiting = 0;
};

// None after a failure, and without the tables.
std::optional<IndexState> ReadIndexState(Store& store);

// Indexes some of the texts that wait, as many as take some ten milliseconds, in one transaction.
// Returns how many: 0 when none waits or the database has no such tables; none after a failure. An
// index with more terms of texts that have gone than of others begins anew.
std::optional<int> IndexSomeTexts(Store& store);

// Makes the index begin anew: it is empty, and all texts wait. False after a failure.
bool EmptyTextIndex(Store& store);

}  // namespace feedloom
