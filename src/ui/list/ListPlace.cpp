#include "ui/list/ListPlace.h"

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

// The rows in which the posts of a place stand now; -1 where there is none.
struct FoundRows {
  QItemSelection selected;
  int current = -1;
  int top = -1;
};

// Neighbouring rows become one range: a selection of thousands of ranges is slow.
void AppendRow(const PostListModel& model, int row, QItemSelection& selection) {
  int first = row;
  if (!selection.isEmpty() && selection.last().bottom() == row - 1) {
    first = selection.last().top();
    selection.removeLast();
  }
  selection.append({model.index(first, 0), model.index(row, model.columnCount() - 1)});
}

// One pass over the rows, which may be many.
FoundRows FindRows(const PostListModel& model, const ListPlace& place) {
  std::unordered_map<int, int> lineOf;
  for (const int id : place.visible) lineOf.emplace(id, static_cast<int>(lineOf.size()));
  FoundRows found;
  int topLine = std::numeric_limits<int>::max();
  for (int row = 0; row < model.rowCount(); ++row) {
    const int id = model.IdAt(row);
    if (place.selected.contains(id)) AppendRow(model, row, found.selected);
    if (id == place.current) found.current = row;
    if (const auto seen = lineOf.find(id); seen != lineOf.end() && seen->second < topLine) {
      topLine = seen->second;
      found.top = row - topLine;
    }
  }
  return found;
}

// The row by which the user finds the place again: the current one, or when that is not seen the
// topmost.
QModelIndex Anchor(const QTreeView& view) {
  const QModelIndex current = view.currentIndex();
  const bool isSeen = view.visualRect(current).intersects(view.viewport()->rect());
  return isSeen ? current : view.indexAt({0, 0});
}

template <typename Change>
void ChangeInPlace(QTreeView& view, Change change) {
  const QPersistentModelIndex anchor = Anchor(view);
  const int line = anchor.row() - view.verticalScrollBar()->value();
  change();
  if (!anchor.isValid()) return;
  view.doItemsLayout();  // the scroll bar's range is that of the old rows until then
  view.verticalScrollBar()->setValue(anchor.row() - line);
}

}  // namespace

ListPlace TakePlace(const QTreeView& view, const PostListModel& model) {
  ListPlace place;
  for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
    for (int row = range.top(); row <= range.bottom(); ++row) {
      place.selected.insert(model.IdAt(row));
    }
  }
  place.visible = VisibleIds(view, model);
  if (view.currentIndex().isValid()) place.current = model.IdAt(view.currentIndex().row());
  return place;
}

void RestorePlace(QTreeView& view, const PostListModel& model, const ListPlace& place) {
  const FoundRows rows = FindRows(model, place);
  view.selectionModel()->setCurrentIndex(model.index(rows.current, kTitleColumn),
                                         QItemSelectionModel::NoUpdate);
  view.selectionModel()->select(rows.selected, QItemSelectionModel::ClearAndSelect);
  if (rows.top < 0) return;
  view.doItemsLayout();  // the scroll bar's range is that of the old rows until then
  view.verticalScrollBar()->setValue(rows.top);
}

void SortInPlace(QTreeView& view, PostListModel& model, int column, Qt::SortOrder order) {
  ChangeInPlace(view, [&] { model.sort(column, order); });
}

void AppendInPlace(QTreeView& view, PostListModel& model, PostList list) {
  ChangeInPlace(view, [&] { model.Append(std::move(list)); });
}

}  // namespace feedloom
