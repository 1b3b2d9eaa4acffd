#pragma once

#include <QCursor>
#include <QTimer>
#include <QTreeView>
#include <functional>
#include <optional>

#include "controls/KeyRest.h"

namespace feedloom {

class GroupTreeModel;
class NewPostAnimation;
class Skin;
class UnreadFilter;

// The tree view of a GroupTreeModel. All groups are expanded at first. At most one row is selected.
// A press of the right button selects its row, unless the host wants rows to be selected carefully.
// Interface thread only.
class CRSS_GroupTreeCtrl : public QTreeView {
  Q_OBJECT

 public:
  // `skin` is read during the call only. `model` must outlive the control.
  CRSS_GroupTreeCtrl(const Skin& skin, GroupTreeModel& model, QWidget* parent);

  // The selected row; an invalid index when no row is selected.
  QModelIndex SelectedRow() const;
  // Whether the host wants rows to be selected carefully.
  bool SelectsCarefully() const { return isCareful_; }
  // Marks the row whose context menu is open; an invalid index ends that.
  void MarkMenuRow(const QModelIndex& row);
  // Afterwards no row is selected and no row is current.
  void ClearSelection();
  // Selects `row` on the way.
  void GoTo(const QModelIndex& row);
  // Emits RowReached now if the keys have come to a row but do not rest yet.
  void Settle() { rest_.Settle(); }

  // True: the skin's cursor shows over rows. False: the parent's cursor shows everywhere.
  void SetOwnCursor(bool own);

  // Shows all rows, or hides those without unread posts (UnreadFilter).
  void ShowUnreadOnly(bool isOn);
  // Runs a change of many rows of the model.
  void RunChange(const std::function<void()>& change);

 signals:
  // Emitted once for each click by which the user selects the row `index`, or clicks on it again,
  // and when the user presses Enter on it.
  void RowSelected(const QModelIndex& index);
  // The row `index` was selected on the way: the keys have come to it and rest, or it stands where
  // a row was that has gone out of sight.
  void RowReached(const QModelIndex& index);
  // The user asks for the context menu of `row`, which is invalid when there is none to choose.
  // `place` is a point in screen coordinates.
  void MenuRequested(const QModelIndex& row, const QPoint& place);
  // A row was dragged to where it cannot be dropped, or the drag was given up.
  void DroppedNowhere();

 protected:
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;
  void paintEvent(QPaintEvent* event) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;
  void updateGeometries() override;

 private:
  void SetUpColors(const Skin& skin);
  void SetUpView();
  void ReportPress(const QModelIndex& index);
  bool TakesPress(const QMouseEvent& press);
  void StartDrag();
  void ReportReached();
  void SelectCollapsedGroup(const QModelIndex& closed);
  void ExpandForSelection(const QModelIndex& group);
  int RowsHeight() const;
  void UpdateScrollRange();
  void UpdateScrollBar();
  void UpdateLine(const QModelIndex& row);
  void RepaintNewMarks();

  NewPostAnimation* const animation_;
  const bool isCareful_;
  UnreadFilter* filter_ = nullptr;  // null until the view has its model

  QPersistentModelIndex menuRow_;
  KeyRest rest_{this, [this] { ReportReached(); }};
  bool isByKey_ = false;  // a key is being handled
  QCursor rowCursor_;
  bool hasOwnCursor_ = true;
  bool isResizing_ = false;
  // Where the left button is pressed on a row that a release will select; null: nowhere.
  std::optional<QPoint> pressPlace_;
  QPersistentModelIndex pressedRow_;
  QPersistentModelIndex underDrag_;  // the row over which a drag is
  QTimer dragRest_;                  // runs until underDrag_ opens
  // These two describe the latest mouse press:
  bool isLeftPress_ = false;
  bool wasReported_ = false;  // RowSelected was emitted for the press
};

}  // namespace feedloom
