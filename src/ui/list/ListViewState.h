// Keeps selection, current row and scroll position of the post list while its rows are replaced,
// sorted or appended. Interface thread only.
#pragma once

#include <QtCore/qnamespace.h>

#include <unordered_set>
#include <vector>

class QTreeView;

namespace feedloom {

class PostListModel;
struct PostFilter;
struct PostList;

// Posts are named by their ids.
struct ListViewState {
  std::unordered_set<int> selected;
  std::vector<int> visible;  // from the first line of the view to the last
  int current = 0;           // the current row's post; 0 without one
};

// Reads the state of `view`, which shows `model`.
ListViewState SaveViewState(const QTreeView& view, const PostListModel& model);

// Selects the posts of `state` that still exist. Scrolls so that the first visible post that still
// exists is on the same line of the view as before.
void RestoreViewState(QTreeView& view, const PostListModel& model, const ListViewState& state);

// Sort the rows, append rows, or hide some. The current post stays on its line of the view; if it
// is not visible, the topmost post does.
void SortKeepingPosition(QTreeView& view, PostListModel& model, int column, Qt::SortOrder order);
void AppendKeepingPosition(QTreeView& view, PostListModel& model, PostList list);
void HideKeepingPosition(QTreeView& view, PostListModel& model, const PostFilter& filter);

}  // namespace feedloom
