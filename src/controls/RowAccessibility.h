// Keyboard and screen-reader support for list and tree views. Interface thread.
#pragma once

class QAbstractItemView;
class QKeyEvent;
class QModelIndex;
class QTreeView;

namespace feedloom {

// Handles the key that shows the current row's tool tip. Shift+F1 shows it below the row; a row
// without a tool tip shows its accessible text. Any other key hides it. Returns whether the key was
// Shift+F1.
bool HandleToolTipKey(QAbstractItemView& view, const QKeyEvent& event);

// Draws the focus ring around `view` when it has the focus but no current row, which would show it.
// To be called at the end of the view's paintEvent.
void DrawFocusWithoutRow(QAbstractItemView& view);

// Tell screen readers that these cells have changed, or that `row` was expanded or collapsed; the
// toolkit reports neither. Of the changed cells only the visible ones are reported.
void NotifyChangedCells(QTreeView& view, const QModelIndex& topLeft,
                        const QModelIndex& bottomRight);
void NotifyExpansion(QTreeView& view, const QModelIndex& row);

}  // namespace feedloom
