// Where the user is in the post list, kept while its rows are replaced, by the posts' ids,
// sorted or added to.
#pragma once

#include <QtCore/qnamespace.h>

#include <unordered_set>
#include <vector>

class QTreeView;

namespace feedloom {

class PostListModel;
struct PostList;

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

// Sorts the rows, or adds some. The current post, or when it is not seen the topmost, stays on its
// line.
void SortInPlace(QTreeView& view, PostListModel& model, int column, Qt::SortOrder order);
void AppendInPlace(QTreeView& view, PostListModel& model, PostList list);

}  // namespace feedloom
