// A list with columns, a header and rows of a fixed height.
#pragma once

#include <QMouseEvent>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QMimeData;

namespace feedloom {

// The delegate of a CVxListCtrl and the base class of other ones. Its size hint has the rows'
// height and does not look at the row, which keeps the layout of long lists fast.
class VxListDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

// A view of a flat model. Several rows can be selected, always as whole rows. The user can change
// the columns' widths and choose a sort order by clicks on the header: ascending by that column,
// then descending, then none. Alt+Up moves the focus to the header, where keys do the same
// (VxListHeader.h). The list does not sort; see SortRequested. A current row that is in sight stays
// there when the list becomes smaller.
class CVxListCtrl : public QTreeView {
  Q_OBJECT

 public:
  static constexpr int kRowHeight = 19;
  static constexpr int kFurtherColumnWidth = 100;

  explicit CVxListCtrl(QWidget* parent);

  // Sets the widths of the first columns, in pixels. Other columns have kFurtherColumnWidth. Set
  // the model before.
  void SetColumnWidths(std::initializer_list<int> widths);

  // Shows one column only, as wide as the list and without a heading, or all columns with headings.
  void SetOneColumn(std::optional<int> column);

  // The widths of the columns, in pixels, as they are when all are shown.
  std::vector<int> ColumnWidths() const;

  // The numbers of the selected rows, in ascending order. Set the model before.
  std::vector<int> SelectedRows() const;

  // Makes `row` the start of selections with Shift, until the user clicks or moves to another row.
  void SetAnchor(int row);

  // Removes the sort indicator from the header.
  void ClearSorting();

  // Shows `text` in the middle of the list, in which there are no rows, and tells it to screen
  // readers; an empty one ends that.
  void SetEmptyText(const QString& text);

  // Whether a press of the right button selects its row, as by default; otherwise it selects
  // nothing.
  void SetRightPressSelects(bool selects) { rightPressSelects_ = selects; }
  // Lets the user drag rows. A press of the left button without a key on a row then takes effect
  // when the button is released on that row; otherwise `dragged` is called with the row and gives
  // what is dragged, to be copied.
  void SetDragged(std::function<QMimeData*(const QModelIndex& row)> dragged) {
    dragged_ = std::move(dragged);
  }
  // Marks the row whose context menu is open; an invalid index ends that.
  void MarkMenuRow(const QModelIndex& row);

  // Disables the list and shows the wait cursor over it, or ends that. If the list has the focus, a
  // cover over the list keeps it meanwhile.
  void SetInputBlocked(bool isBlocked);

 signals:
  // The left mouse button was pressed on a row; the selection has changed already. A double click
  // is reported once. Other buttons select at most.
  void RowClicked(int row);
  // A key has moved to this row, which alone is selected now.
  void RowReached(int row);
  // The user has chosen this sort order, which the header shows. A `column` of -1 means none.
  void SortRequested(int column, Qt::SortOrder order);
  // The user has scrolled to the last row or pressed End. Repeated at each further attempt.
  void EndReached();
  // The user asks for the context menu, at this point of the screen: the pointer's, or for the menu
  // key the lower left corner of the current row. `row` is the one under the pointer if it is not
  // selected; otherwise it is invalid, and the menu is for the selected rows.
  void MenuRequested(const QModelIndex& row, const QPoint& place);
  // Rows were dragged to where they cannot be dropped, or the drag was given up.
  void DroppedNowhere();

 protected:
  void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                   const QList<int>& roles) override;
  void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void setSelection(const QRect& rect, QItemSelectionModel::SelectionFlags command) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void moveEvent(QMoveEvent* event) override;

 private:
  void SetUpHeader();
  bool TakesPress(const QMouseEvent& press);
  void Press(QMouseEvent& event);
  void StartDrag();
  bool IsAtEnd() const;
  QWidget* Cover();
  void PlaceCover();

  std::vector<int> widthsBefore_;  // empty while all columns are shown
  QString emptyText_;
  bool rightPressSelects_ = true;
  std::function<QMimeData*(const QModelIndex& row)> dragged_;
  std::unique_ptr<QMouseEvent> press_;  // that waits for its release or for a drag
  QPersistentModelIndex pressedRow_;
  QPersistentModelIndex menuRow_;
  QPersistentModelIndex anchor_;  // invalid: the base class's anchor is used
  // The widget over the closed list. A disabled widget can have neither a cursor nor the focus.
  QPointer<QWidget> cover_;
};

}  // namespace feedloom
