// The skinned report list: a header, and rows of fixed height in columns.
#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <initializer_list>
#include <vector>

namespace feedloom {

// Paints the rows of a CVxListCtrl; whoever paints them in another way derives from it. The view
// asks it for the rows' height, and for nothing else when it lays out a long list.
class VxListDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

// Shows any flat model. Several rows may be selected, always whole ones. The user may drag the
// columns' widths, and ask for an order by clicks on the header: ascending by the column, then
// descending, then none. Alt+Up leads the keyboard to the header (VxListHeader.h) for the same.
class CVxListCtrl : public QTreeView {
  Q_OBJECT

 public:
  static constexpr int kRowHeight = 19;
  static constexpr int kFurtherColumnWidth = 100;

  explicit CVxListCtrl(QWidget* parent);

  // In pixels, from the left; columns without a width here have kFurtherColumnWidth. Needs the
  // model.
  void SetColumnWidths(std::initializer_list<int> widths);

  // Ascending. Needs the model.
  std::vector<int> SelectedRows() const;

  // From now on Shift selects from this row, until the user clicks on another or moves to one.
  void SetAnchor(int row);

  // The header shows no order.
  void ClearSorting();

  // While it is closed the list takes no input and shows the wait cursor. The keyboard, when it is
  // here, waits in the list's place and comes back.
  void SetClosed(bool isClosed);

 signals:
  // The left button went down on a row, which is selected by now as the modifier keys ask. A double
  // click is one click. Other buttons only select.
  void RowClicked(int row);
  // The header shows this order from now on; `column` is -1 for none.
  void SortRequested(int column, Qt::SortOrder order);
  // The user has scrolled to the last row or pressed End; once more with each further attempt.
  void EndReached();
  // The right button went down, or the menu key, which has its place below the current row. A point
  // of the screen.
  void MenuRequested(const QPoint& place);

 protected:
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void SetUpHeader();
  bool IsAtEnd() const;
  QWidget* Cover();
  void PlaceCover();

  QPersistentModelIndex anchor_;  // not valid while the base class's own is right
  // Lies over the list while that is closed: a disabled widget has no cursor and no keyboard.
  QPointer<QWidget> cover_;
};

}  // namespace feedloom
