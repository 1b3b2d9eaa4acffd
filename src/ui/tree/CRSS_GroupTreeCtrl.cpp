#include "ui/tree/CRSS_GroupTreeCtrl.h"

#include <QMouseEvent>
#include <utility>

#include "skin/Keys.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/TreeRowDelegate.h"
#include "vxctrl/SkinFont.h"

namespace feedloom {
namespace {

// The skin's images lie on these, so they don't follow the desktop's colours.
constexpr QColor kBackground(0xE4, 0xF3, 0xFF);
constexpr QColor kText(0x1F, 0x2D, 0x36);
constexpr QColor kSelection(0xA9, 0xD4, 0xF2);
constexpr QColor kSelectionWithoutFocus(0xC2, 0xD6, 0xE2);

}  // namespace

CRSS_GroupTreeCtrl::CRSS_GroupTreeCtrl(const Skin& skin, GroupTreeModel& model, QWidget* parent)
    : QTreeView(parent) {
  TreeSkin images = LoadTreeSkin(skin);
  rowCursor_ = images.rowCursor;
  setItemDelegate(new TreeRowDelegate(std::move(images), this));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  SetUpColors();
  SetUpView();
  setModel(&model);
  connect(&model, &QAbstractItemModel::modelReset, this, &QTreeView::expandAll);
  connect(this, &QAbstractItemView::pressed, this, &CRSS_GroupTreeCtrl::ReportPress);
}

void CRSS_GroupTreeCtrl::SetUpColors() {
  QPalette colors = palette();
  colors.setColor(QPalette::Base, kBackground);
  colors.setColor(QPalette::Text, kText);
  colors.setColor(QPalette::Active, QPalette::Highlight, kSelection);
  colors.setColor(QPalette::Inactive, QPalette::Highlight, kSelectionWithoutFocus);
  setPalette(colors);
}

void CRSS_GroupTreeCtrl::SetUpView() {
  setFrameShape(QFrame::NoFrame);
  setHeaderHidden(true);
  setIndentation(kRowIndentation);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setMouseTracking(true);  // for the cursor
}

QModelIndex CRSS_GroupTreeCtrl::SelectedRow() const {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  return selected.isEmpty() ? QModelIndex() : selected.first();
}

void CRSS_GroupTreeCtrl::SetOwnCursor(bool own) {
  hasOwnCursor_ = own;
  if (!own) viewport()->unsetCursor();
}

void CRSS_GroupTreeCtrl::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
  row.state.setFlag(QStyle::State_HasFocus, hasFocus());
  itemDelegate()->paint(painter, row, index);
}

void CRSS_GroupTreeCtrl::selectionChanged(const QItemSelection& selected,
                                          const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  viewport()->update();  // whole rows, which the base class leaves at their contents
  if (selected.isEmpty()) return;
  wasReported_ = true;
  emit RowSelected(SelectedRow());
}

// A row is selected by whatever is done to it, with or without a modifier key.
QItemSelectionModel::SelectionFlags CRSS_GroupTreeCtrl::selectionCommand(
    const QModelIndex& index, const QEvent* event) const {
  const auto command = QTreeView::selectionCommand(index, event);
  return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::ClearAndSelect
                                                         : command;
}

// Without a current row the base class goes to the first one, whatever the key.
QModelIndex CRSS_GroupTreeCtrl::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action != MoveEnd || currentIndex().isValid())
    return QTreeView::moveCursor(action, modifiers);
  QModelIndex last = model()->index(model()->rowCount() - 1, 0);
  if (isExpanded(last) && model()->hasChildren(last)) {
    last = model()->index(model()->rowCount(last) - 1, 0, last);
  }
  return last;
}

void CRSS_GroupTreeCtrl::mousePressEvent(QMouseEvent* event) {
  wasReported_ = false;
  isLeftPress_ = event->button() == Qt::LeftButton;
  QTreeView::mousePressEvent(event);
}

// The base class says "pressed" for a press on a row, not for one on its expand mark.
void CRSS_GroupTreeCtrl::ReportPress(const QModelIndex& index) {
  if (isLeftPress_ && !wasReported_) emit RowSelected(index);
}

// Without a button only: dragging would select every row on its way, and load its posts.
void CRSS_GroupTreeCtrl::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() != Qt::NoButton) return;
  QTreeView::mouseMoveEvent(event);
  if (hasOwnCursor_ && indexAt(event->position().toPoint()).isValid()) {
    viewport()->setCursor(rowCursor_);
  } else {
    viewport()->unsetCursor();
  }
}

// The base class makes the first row the current one, unselected, so that Home does nothing and
// Down passes it by.
void CRSS_GroupTreeCtrl::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  if (!SelectedRow().isValid()) selectionModel()->clearCurrentIndex();
}

}  // namespace feedloom
