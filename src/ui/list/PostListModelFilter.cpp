// The functions of PostListModel that hide posts and bring them back.
#include <algorithm>
#include <iterator>

#include "ui/list/PostListModel.h"

namespace feedloom {

void PostListModel::Filter(const PostFilter& filter) {
  const auto isHidden = [&](const PackedPost& post) { return filter.Hides(post); };
  if (std::ranges::none_of(posts_, isHidden) && std::ranges::all_of(aside_, isHidden)) return;
  beginResetModel();
  BringBack();
  SetAside(filter);
  Reorder(PostOrder(posts_, sorting_, codePage_));
  endResetModel();
}

void PostListModel::Hide(const PostFilter& filter) {
  std::vector<int> rows;
  for (int row = 0; row < rowCount(); ++row) {
    if (filter.Hides(Post(row))) rows.push_back(row);
  }
  Drop(rows, false);
}

std::vector<int> PostListModel::Ids() const {
  std::vector<const PackedPost*> all;
  for (const auto* const posts : {&posts_, &aside_}) {
    for (const PackedPost& post : *posts) all.push_back(&post);
  }
  std::ranges::sort(all, {}, &PackedPost::StoreIndex);
  std::vector<int> ids;
  std::ranges::transform(all, back_inserter(ids), &PackedPost::Id);
  return ids;
}

// The caller puts them in order.
void PostListModel::BringBack() {
  posts_.insert(posts_.end(), std::move_iterator(aside_.begin()), std::move_iterator(aside_.end()));
  aside_.clear();
}

void PostListModel::SetAside(const PostFilter& filter) {
  if (!filter.isUnreadOnly) return;
  const auto hidden = std::stable_partition(
      posts_.begin(), posts_.end(), [&](const PackedPost& post) { return !filter.Hides(post); });
  aside_.insert(aside_.end(), std::move_iterator(hidden), std::move_iterator(posts_.end()));
  posts_.erase(hidden, posts_.end());
}

}  // namespace feedloom
