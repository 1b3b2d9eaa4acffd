#include "vxctrl/CVxListCtrl.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

namespace feedloom {
namespace {

constexpr int kNarrowestColumn = 16;

}  // namespace

QSize VxListDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {CVxListCtrl::kFurtherColumnWidth, CVxListCtrl::kRowHeight};
}

CVxListCtrl::CVxListCtrl(QWidget* parent) : QTreeView(parent) {
  setItemDelegate(new VxListDelegate(this));
  setUniformRowHeights(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setWordWrap(false);
  setAllColumnsShowFocus(true);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(ExtendedSelection);
  setSelectionBehavior(SelectRows);
  // By whole rows, so that the first one is never cut and a place in the list is a row's number.
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  SetUpHeader();
}

void CVxListCtrl::SetUpHeader() {
  header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header()->setMinimumSectionSize(kNarrowestColumn);
  header()->setDefaultSectionSize(kFurtherColumnWidth);
  header()->setStretchLastSection(false);
  header()->setSectionsMovable(false);
  QPalette colours = header()->palette();
  const QColor menu = QApplication::palette("QMenu").color(QPalette::Window);
  colours.setColor(QPalette::Button, menu);
  colours.setColor(QPalette::Window, menu);
  header()->setPalette(colours);
}

void CVxListCtrl::SetColumnWidths(std::initializer_list<int> widths) {
  int column = 0;
  for (const int width : widths) setColumnWidth(column++, width);
}

void CVxListCtrl::mousePressEvent(QMouseEvent* event) {
  QTreeView::mousePressEvent(event);
  const QModelIndex index = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && index.isValid()) emit RowClicked(index.row());
}

void CVxListCtrl::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter || !currentIndex().isValid()) {
    QTreeView::keyPressEvent(event);
    return;
  }
  emit RowEntered(currentIndex().row());
}

}  // namespace feedloom
