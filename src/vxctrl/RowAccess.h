// What a view of rows gives to those who work without a pointer, or without looking.
#pragma once

class QAbstractItemView;
class QKeyEvent;
class QModelIndex;
class QTreeView;

namespace feedloom {

// Shift+F1 shows what the pointer would be told about the current row, at the row; without a tip of
// its own that is what a screen reader says. Any other key takes it away. True when it was the key.
bool TakeRowTipKey(QAbstractItemView& view, const QKeyEvent& event);

// The ring around a view that has the keyboard, as long as it has no current row that shows it.
void DrawFocusWithoutRow(QAbstractItemView& view);

// A screen reader hears that these cells have changed, or that a row was opened or closed. The
// toolkit tells it neither. Of changed cells only those on screen are told of: lists are long.
void TellChangedCells(QTreeView& view, const QModelIndex& topLeft, const QModelIndex& bottomRight);
void TellExpansion(QTreeView& view, const QModelIndex& row);

}  // namespace feedloom
