#include "controls/RowAccessibility.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>
#include <QTreeView>

#include "look/SkinDrawing.h"

namespace feedloom {
namespace {

QString TipOf(const QModelIndex& cell) {
  const QString tip = cell.data(Qt::ToolTipRole).toString();
  if (!tip.isEmpty()) return tip;
  return Qt::convertFromPlainText(cell.data(Qt::AccessibleTextRole).toString(),
                                  Qt::WhiteSpaceNormal);
}

// The number of rows above `row` that are not hidden in a collapsed one. In a flat list it is the
// row's number, which saves the walk over a long list.
int LineOf(const QTreeView& view, const QModelIndex& row) {
  if (!view.itemsExpandable()) return row.row();
  int line = 0;
  for (QModelIndex above = view.indexAbove(row); above.isValid(); above = view.indexAbove(above)) {
    ++line;
  }
  return line;
}

// The toolkit's index of the accessible child for `cell`: cells are counted row by row, after those
// of the header, even when it is hidden.
int CellNumber(const QTreeView& view, const QModelIndex& cell) {
  return (LineOf(view, cell) + 1) * view.header()->count() + cell.column();
}

void Tell(QTreeView& view, const QModelIndex& cell, QAccessibleEvent& event) {
  event.setChild(CellNumber(view, cell));
  QAccessible::updateAccessibility(&event);
}

}  // namespace

bool HandleToolTipKey(QAbstractItemView& view, const QKeyEvent& event) {
  if (event.key() != Qt::Key_F1 || event.modifiers() != Qt::ShiftModifier) {
    QToolTip::hideText();
    return false;
  }
  const QModelIndex current = view.currentIndex();
  if (!current.isValid()) return true;
  view.scrollTo(current);
  const QRect place = view.visualRect(current) & view.viewport()->rect();
  QToolTip::showText(view.viewport()->mapToGlobal(place.bottomLeft()), TipOf(current),
                     view.viewport());
  return true;
}

void DrawFocusWithoutRow(QAbstractItemView& view) {
  if (!view.hasFocus() || view.currentIndex().isValid()) return;
  QPainter painter(view.viewport());
  DrawSkinFocus(painter, view.palette(), view.viewport()->rect(), 0);
}

void NotifyChangedCells(QTreeView& view, const QModelIndex& topLeft,
                        const QModelIndex& bottomRight) {
  if (!QAccessible::isActive()) return;
  const int bottom = view.viewport()->height();
  for (QModelIndex row = view.indexAt({0, 0}); row.isValid() && view.visualRect(row).top() < bottom;
       row = view.indexBelow(row)) {
    const bool isAmong = row.parent() == topLeft.parent() && row.row() >= topLeft.row() &&
                         row.row() <= bottomRight.row();
    for (int column = topLeft.column(); isAmong && column <= bottomRight.column(); ++column) {
      QAccessibleEvent event(&view, QAccessible::NameChanged);
      Tell(view, row.siblingAtColumn(column), event);
    }
  }
}

void NotifyExpansion(QTreeView& view, const QModelIndex& row) {
  if (!QAccessible::isActive()) return;
  QAccessible::State changed;
  changed.expanded = true;
  QAccessibleStateChangeEvent event(&view, changed);
  Tell(view, row, event);
}

}  // namespace feedloom
