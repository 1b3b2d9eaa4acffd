#pragma once

#include <QCursor>
#include <QTreeView>

namespace feedloom {

class GroupTreeModel;
class NewPostAnimation;
class Skin;

// Shows a GroupTreeModel: groups, expanded at first, and their rows. At most one row is selected.
class CRSS_GroupTreeCtrl : public QTreeView {
  Q_OBJECT

 public:
  // `model` outlives the control.
  CRSS_GroupTreeCtrl(const Skin& skin, GroupTreeModel& model, QWidget* parent);

  // Not valid when no row is selected.
  QModelIndex SelectedRow() const;
  // No row is selected then, nor the current one.
  void ClearSelection();

  // Whether the skin's cursor shows over rows; otherwise the parent's does.
  void SetOwnCursor(bool own);

 signals:
  // The user selected this row, clicked on it again, or pressed Enter on it: once for each
  // click or key.
  void RowSelected(const QModelIndex& index);
  // The user asks for the menu, at this point of the screen.
  void MenuRequested(const QPoint& place);

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
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;
  void updateGeometries() override;

 private:
  void SetUpColors(const Skin& skin);
  void SetUpView();
  void ReportPress(const QModelIndex& index);
  void SelectInsteadOfHidden(const QModelIndex& closed);
  void ShowSelectionIn(const QModelIndex& group);
  int RowsHeight() const;
  void UpdateScrollRange();
  void UpdateScrollBar();
  void RepaintNewMarks();

  NewPostAnimation* const animation_;

  QCursor rowCursor_;
  bool hasOwnCursor_ = true;
  bool isResizing_ = false;
  // Of the press that is being handled, or was handled last:
  bool isLeftPress_ = false;
  bool wasReported_ = false;  // RowSelected was emitted for it
};

}  // namespace feedloom
