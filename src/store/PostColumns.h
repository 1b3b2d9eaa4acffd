// The columns that every statement on posts lists, and how they become a row.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "store/Connection.h"
#include "store/Rows.h"

namespace feedloom {

// The nine columns common to posts and saved posts begin at `first`; the others are where a column
// is named.
struct PostLayout {
  int first = 0;
  std::optional<int> podcast = std::nullopt;
  std::optional<int> ownerId = std::nullopt;
};

void AppendPosts(const ResultTable& table, const PostLayout& layout, std::vector<PostRow>& out);

}  // namespace feedloom
