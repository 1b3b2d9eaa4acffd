// Sorts the list's rows. Pure function.
#pragma once

#include <QtCore/qnamespace.h>

#include <span>
#include <vector>

#include "text/CodePage.h"
#include "ui/list/PackedPost.h"

namespace feedloom {

struct Sorting {
  int column = -1;  // a PostColumn; -1 for the store's order
  Qt::SortOrder order = Qt::AscendingOrder;

  bool operator==(const Sorting&) const = default;
};

// Returns the indices of `posts` in the order of `sorting`. Texts, which are in `codePage`, are
// sorted by the collation of the default locale, dates by their stored form, unread posts before
// read ones. Equal posts, and all posts for an empty column, are in the store's order. Blocks until
// a few threads have made the collation keys of a long list. Interface thread only.
std::vector<int> PostOrder(std::span<const PackedPost> posts, const Sorting& sorting,
                           CodePage codePage);

}  // namespace feedloom
