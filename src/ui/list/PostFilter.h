#pragma once

#include <unordered_set>

#include "ui/list/PackedPost.h"

namespace feedloom {

// Which posts of a list have rows: all, or those that are unread and those with an id in `kept`.
struct PostFilter {
  bool Hides(const PackedPost& post) const {
    return isUnreadOnly && post.IsRead() && !kept.contains(post.Id());
  }

  bool isUnreadOnly = false;
  std::unordered_set<int> kept = {};
};

}  // namespace feedloom
