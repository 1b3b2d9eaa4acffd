// The order of the list's rows.
#pragma once

#include <QtCore/qnamespace.h>

#include <span>
#include <vector>

#include "platform/CodePage.h"
#include "ui/list/PackedPost.h"

namespace feedloom {

struct Sorting {
  int column = -1;  // -1: none, the order is the store's
  Qt::SortOrder order = Qt::AscendingOrder;

  bool operator==(const Sorting&) const = default;
};

// The indices of `posts` in the order that `sorting` asks for: texts as the user's language sorts
// what their cells show, dates as they are stored, unread posts before read ones. Equal posts, and
// with a column that has no texts all of them, stand in the store's order.
std::vector<int> PostOrder(std::span<const PackedPost> posts, const Sorting& sorting,
                           CodePage codePage);

}  // namespace feedloom
