// Where the user is in the post list, kept by the posts' ids while its rows are replaced.
#pragma once

#include <unordered_set>
#include <vector>

class QTreeView;

namespace feedloom {

class PostListModel;

struct ListPlace {
  std::unordered_set<int> selected;
  std::vector<int> visible;  // from the first line of the view to the last
  int current = 0;           // 0: none
};

// `view` shows `model`.
ListPlace TakePlace(const QTreeView& view, const PostListModel& model);

// Selects what is still there of `place`, and scrolls so that the topmost post that was seen and is
// still there stands on the line where it stood.
void RestorePlace(QTreeView& view, const PostListModel& model, const ListPlace& place);

}  // namespace feedloom
