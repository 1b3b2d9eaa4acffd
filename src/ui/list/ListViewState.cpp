#include "ui/list/ListViewState.h"

#include <QItemSelection>
#include <QScrollBar>
#include <QTreeView>
#include <limits>
#include <unordered_map>
#include <utility>

#include "ui/PostList.h"
#include "ui/list/PostListModel.h"

namespace feedloom {
namespace {

std::vector<int> VisibleIds(const QTreeView& view, const PostListModel& model) {
  std::vector<int> ids;
  const int bottom = view.viewport()->height();
  for (QModelIndex index = view.indexAt({0, 0});
       index.isValid() && view.visualRect(index).top() < bottom; index = view.indexBelow(index)) {
    ids.push_back(model.IdAt(index.row()));
  }
  return ids;
}

// The current rows of the posts of a ListViewState; -1 for no row.
struct FoundRows {
  QItemSelection selected;
  int current = -1;
  int top = -1;
};

// Adjacent rows are merged into one range, because a selection of thousands of ranges is slow.
void AppendRow(const PostListModel& model, int row, QItemSelection& selection) {
  int first = row;
  if (!selection.isEmpty() && selection.last().bottom() == row - 1) {
    first = selection.last().top();
    selection.removeLast();
  }
  selection.append({model.index(first, 0), model.index(row, model.columnCount() - 1)});
}

// Makes a single pass over the rows, as there may be 200,000.
FoundRows FindRows(const PostListModel& model, const ListViewState& state) {
  std::unordered_map<int, int> lineOf;
  for (const int id : state.visible) lineOf.emplace(id, static_cast<int>(lineOf.size()));
  FoundRows found;
  int topLine = std::numeric_limits<int>::max();
  for (int row = 0; row < model.rowCount(); ++row) {
    const int id = model.IdAt(row);
    if (state.selected.contains(id)) AppendRow(model, row, found.selected);
    if (id == state.current) found.current = row;
    if (const auto seen = lineOf.find(id); seen != lineOf.end() && seen->second < topLine) {
      topLine = seen->second;
      found.top = row - topLine;
    }
  }
  return found;
}

// The row that stays on its line: the current row, or the topmost row if the current one is not
// visible.
QModelIndex AnchorRow(const QTreeView& view) {
  const QModelIndex current = view.currentIndex();
  const bool isSeen = view.visualRect(current).intersects(view.viewport()->rect());
  return isSeen ? current : view.indexAt({0, 0});
}

template <typename Change>
void ChangeKeepingPosition(QTreeView& view, Change change) {
  const QPersistentModelIndex anchor = AnchorRow(view);
  const int line = anchor.row() - view.verticalScrollBar()->value();
  change();
  if (!anchor.isValid()) return;
  view.doItemsLayout();  // updates the scroll bar's range for the new rows
  view.verticalScrollBar()->setValue(anchor.row() - line);
}

}  // namespace

ListViewState SaveViewState(const QTreeView& view, const PostListModel& model) {
  ListViewState state;
  for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      state.selected.insert(model.IdAt(row));
    }
  }
  state.visible = VisibleIds(view, model);
  if (view.currentIndex().isValid()) state.current = model.IdAt(view.currentIndex().row());
  return state;
}

void RestoreViewState(QTreeView& view, const PostListModel& model, const ListViewState& state) {
  const FoundRows rows = FindRows(model, state);
  view.setAutoScroll(false);  // or a hidden view would scroll to the current row when it is shown
  view.selectionModel()->setCurrentIndex(model.index(rows.current, kTitleColumn),
                                         QItemSelectionModel::NoUpdate);
  view.setAutoScroll(true);
  view.selectionModel()->select(rows.selected, QItemSelectionModel::ClearAndSelect);
  if (rows.top < 0) return;
  view.doItemsLayout();  // updates the scroll bar's range for the new rows
  view.verticalScrollBar()->setValue(rows.top);
}

void SortKeepingPosition(QTreeView& view, PostListModel& model, int column, Qt::SortOrder order) {
  ChangeKeepingPosition(view, [&] { model.sort(column, order); });
}

void AppendKeepingPosition(QTreeView& view, PostListModel& model, PostList list) {
  ChangeKeepingPosition(view, [&] { model.Append(std::move(list)); });
}

void HideKeepingPosition(QTreeView& view, PostListModel& model, const PostFilter& filter) {
  ChangeKeepingPosition(view, [&] { model.Hide(filter); });
}

}  // namespace feedloom
