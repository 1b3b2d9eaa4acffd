// Turns the result of a statement on posts into rows.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "store/Connection.h"
#include "store/Rows.h"

namespace feedloom {

// Where a statement's columns are: the nine that posts and saved posts share begin at `first`; the
// other two are in the result only when their number is set.
struct PostLayout {
  int first = 0;
  std::optional<int> podcast = std::nullopt;
  std::optional<int> ownerId = std::nullopt;
};

// Appends a row to `out` for each row of `table`.
void AppendPosts(const ResultTable& table, const PostLayout& layout, std::vector<PostRow>& out);

}  // namespace feedloom
