#pragma once

#include <QCursor>
#include <QTreeView>

namespace feedloom {

class GroupTreeModel;
class Skin;

// Shows a GroupTreeModel: groups, expanded at first, and their rows. At most one row is selected.
class CRSS_GroupTreeCtrl : public QTreeView {
  Q_OBJECT

 public:
  // `model` outlives the control.
  CRSS_GroupTreeCtrl(const Skin& skin, GroupTreeModel& model, QWidget* parent);

  // Not valid when no row is selected.
  QModelIndex SelectedRow() const;

  // Whether the skin's cursor shows over rows; otherwise the parent's does.
  void SetOwnCursor(bool own);

 signals:
  // The user selected this row, or clicked on it again: once for each click or key.
  void RowSelected(const QModelIndex& index);

 protected:
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void SetUpColors();
  void SetUpView();
  void ReportPress(const QModelIndex& index);

  QCursor rowCursor_;
  bool hasOwnCursor_ = true;
  // Of the press that is being handled, or was handled last:
  bool isLeftPress_ = false;
  bool wasReported_ = false;  // RowSelected was emitted for it
};

}  // namespace feedloom
