#include "ui/tree/CRSS_GroupTreeCtrl.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "controls/RowAccessibility.h"
#include "look/SkinDrawing.h"
#include "look/SkinFont.h"
#include "look/SkinPalette.h"
#include "skin/Colors.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/NewPostAnimation.h"
#include "ui/tree/TreeRowDelegate.h"
#include "ui/tree/UnreadFilter.h"

namespace feedloom {
namespace {

constexpr int kExpandDelay = 700;  // ms that a drag rests over a closed group until that opens
constexpr int kBottomMargin = 5;   // pixels between the last row and the end of the scrolled area

}  // namespace

CRSS_GroupTreeCtrl::CRSS_GroupTreeCtrl(const Skin& skin, GroupTreeModel& model, QWidget* parent)
    : QTreeView(parent),
      animation_(new NewPostAnimation(skin, this)),
      isCareful_(skin.Config().SelectsCarefully()) {
  TreeSkin images = LoadTreeSkin(skin);
  rowCursor_ = images.rowCursor;
  setItemDelegate(new TreeRowDelegate(std::move(images), *animation_, this));
  setFont(LoadSkinFont(skin, kSectionFont, kFontDefault));
  SetUpColors(skin);
  SetUpView();
  setModel(&model);
  connect(&model, &QAbstractItemModel::modelReset, this, &QTreeView::expandAll);
  connect(&model, &QAbstractItemModel::rowsInserted, this,
          [this](const QModelIndex& group, int first) {
            if (!group.isValid()) expand(this->model()->index(first, 0));
          });
  connect(&model, &QAbstractItemModel::rowsMoved, this,
          [this](const QModelIndex&, int, int, const QModelIndex& group) {
            ExpandForSelection(group);
          });
  filter_ = new UnreadFilter(*this, model, [this] { return rest_.isActive(); });
  connect(animation_, &NewPostAnimation::FrameChanged, this, &CRSS_GroupTreeCtrl::RepaintNewMarks);
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
          &CRSS_GroupTreeCtrl::UpdateScrollRange);
  connect(this, &QTreeView::collapsed, this, &CRSS_GroupTreeCtrl::SelectCollapsedGroup);
  connect(this, &QAbstractItemView::pressed, this, &CRSS_GroupTreeCtrl::ReportPress);
  const auto tell = [this](const QModelIndex& group) { NotifyExpansion(*this, group); };
  connect(this, &QTreeView::expanded, this, tell);
  connect(this, &QTreeView::collapsed, this, tell);
}

void CRSS_GroupTreeCtrl::SetUpColors(const Skin& skin) {
  QPalette colors;  // colours that are not set here are inherited from the frame
  colors.setColor(QPalette::Base, SkinColor(skin, kColorTreeGround));
  colors.setColor(QPalette::Text, SkinColor(skin, kColorTreeText));
  setPalette(colors);
}

void CRSS_GroupTreeCtrl::SetUpView() {
  setFrameShape(QFrame::NoFrame);
  setHeaderHidden(true);
  setIndentation(kRowIndentation);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
  // With SelectRows, Qt selects a wrong row when a screen reader selects a channel.
  setSelectionBehavior(SelectItems);
  setVerticalScrollMode(ScrollPerPixel);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAcceptDrops(isCareful_);
  setDropIndicatorShown(isCareful_);
  dragRest_.setSingleShot(true);
  dragRest_.setInterval(kExpandDelay);
  connect(&dragRest_, &QTimer::timeout, this, [this] { expand(underDrag_); });
  setMouseTracking(true);  // mouseMoveEvent sets the cursor without a pressed button
}

QModelIndex CRSS_GroupTreeCtrl::SelectedRow() const {
  const QModelIndexList selected = selectionModel()->selectedIndexes();
  return selected.isEmpty() ? QModelIndex() : selected.first();
}

void CRSS_GroupTreeCtrl::MarkMenuRow(const QModelIndex& row) {
  menuRow_ = row;
  viewport()->update();
}

void CRSS_GroupTreeCtrl::ClearSelection() { selectionModel()->clear(); }

void CRSS_GroupTreeCtrl::GoTo(const QModelIndex& row) {
  {
    const QSignalBlocker blocker(this);  // of RowSelected
    setCurrentIndex(row);
  }
  ReportReached();
}

void CRSS_GroupTreeCtrl::ReportReached() {
  if (SelectedRow().isValid()) emit RowReached(SelectedRow());
}

void CRSS_GroupTreeCtrl::SetOwnCursor(bool own) {
  hasOwnCursor_ = own;
  if (!own) viewport()->unsetCursor();
}

void CRSS_GroupTreeCtrl::ShowUnreadOnly(bool isOn) {
  Settle();
  filter_->Set(isOn);
}

void CRSS_GroupTreeCtrl::RunChange(const std::function<void()>& change) {
  filter_->RunChange(change);
}

void CRSS_GroupTreeCtrl::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  QStyleOptionViewItem row = option;
  row.state.setFlag(QStyle::State_Selected, selectionModel()->isSelected(index));
  row.state.setFlag(QStyle::State_HasFocus, hasFocus());
  itemDelegate()->paint(painter, row, index);
  if (index == menuRow_) DrawSkinFocus(*painter, palette(), option.rect, 0);
}

void CRSS_GroupTreeCtrl::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                                     const QList<int>& roles) {
  QTreeView::dataChanged(topLeft, bottomRight, roles);
  const QModelIndex group = topLeft.parent();
  if (group.isValid() && !isExpanded(group)) UpdateLine(group);  // it has marks of its channels
  NotifyChangedCells(*this, topLeft, bottomRight);
}

void CRSS_GroupTreeCtrl::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  DrawFocusWithoutRow(*this);
}

void CRSS_GroupTreeCtrl::selectionChanged(const QItemSelection& selected,
                                          const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  viewport()->update();  // the base class repaints the items only, not the whole rows
  rest_.stop();
  if (selected.isEmpty()) return;
  if (isByKey_) return rest_.start();
  wasReported_ = true;
  emit RowSelected(SelectedRow());
}

// A click with Ctrl would deselect the row; here every click selects it.
QItemSelectionModel::SelectionFlags CRSS_GroupTreeCtrl::selectionCommand(
    const QModelIndex& index, const QEvent* event) const {
  const auto command = QTreeView::selectionCommand(index, event);
  return command.testFlag(QItemSelectionModel::Deselect) ? QItemSelectionModel::ClearAndSelect
                                                         : command;
}

// Without a current row the base class moves to the first row, even for the End key.
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
  // A press beside all rows would take the selection away.
  const bool isOnRow = indexAt(event->pos()).isValid();
  if (isCareful_ && (event->button() == Qt::RightButton || !isOnRow)) return;
  if (!TakesPress(*event)) QTreeView::mousePressEvent(event);
}

// The base class emits pressed() for a press on a row, but not for one on its expand mark.
void CRSS_GroupTreeCtrl::ReportPress(const QModelIndex& index) {
  if (isLeftPress_ && !wasReported_) emit RowSelected(index);
}

// Moves with a pressed button select nothing: each row on the way would have its posts loaded.
void CRSS_GroupTreeCtrl::mouseMoveEvent(QMouseEvent* event) {
  const auto way = pressPlace_ ? (event->pos() - *pressPlace_).manhattanLength() : 0;
  if (way >= QApplication::startDragDistance()) return StartDrag();
  if (event->buttons() != Qt::NoButton) return;
  QTreeView::mouseMoveEvent(event);
  if (hasOwnCursor_ && indexAt(event->position().toPoint()).isValid()) {
    viewport()->setCursor(rowCursor_);
  } else {
    viewport()->unsetCursor();
  }
}

// When a group is collapsed over the selected row, the group is selected: commands must not act on
// a hidden row.
void CRSS_GroupTreeCtrl::SelectCollapsedGroup(const QModelIndex& closed) {
  if (SelectedRow().parent() == closed) GoTo(closed);
}

void CRSS_GroupTreeCtrl::keyPressEvent(QKeyEvent* event) {
  if (HandleToolTipKey(*this, *event)) return;
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEnter) {
    const QScopedValueRollback byKey(isByKey_, true);
    return QTreeView::keyPressEvent(event);
  }
  rest_.stop();
  if (SelectedRow().isValid()) emit RowSelected(SelectedRow());
}

void CRSS_GroupTreeCtrl::contextMenuEvent(QContextMenuEvent* event) {
  const QModelIndex selected = SelectedRow();
  if (event->reason() != QContextMenuEvent::Keyboard) {
    const QModelIndex pressed = isCareful_ ? indexAt(event->pos()) : selected;
    emit MenuRequested(pressed.isValid() ? pressed : selected, event->globalPos());
    return;
  }
  scrollTo(selected);
  emit MenuRequested(selected, viewport()->mapToGlobal(visualRect(selected).bottomLeft()));
}

void CRSS_GroupTreeCtrl::ExpandForSelection(const QModelIndex& group) {
  if (SelectedRow().parent() == group) expand(group);
}

// The height in pixels of all rows that are not hidden, nor in a collapsed group.
int CRSS_GroupTreeCtrl::RowsHeight() const {
  int height = 0;
  for (int group = 0; group < model()->rowCount(); ++group) {
    if (isRowHidden(group, {})) continue;
    const QModelIndex header = model()->index(group, 0);
    height += kGroupRowHeight;
    if (isExpanded(header)) height += filter_->CountShown(header) * kChildRowHeight;
  }
  return height;
}

// During a resize the base class decides about the scroll bar before it knows the new range. So the
// scroll bar's policy is set when the base class has finished.
bool CRSS_GroupTreeCtrl::event(QEvent* event) {
  if (event->type() != QEvent::Resize) return QTreeView::event(event);
  isResizing_ = true;
  const bool isHandled = QTreeView::event(event);
  isResizing_ = false;
  UpdateScrollBar();
  return isHandled;
}

void CRSS_GroupTreeCtrl::updateGeometries() {
  QTreeView::updateGeometries();
  UpdateScrollRange();
}

// The base class scrolls to the end of the last row; the pane adds a margin below that row.
void CRSS_GroupTreeCtrl::UpdateScrollRange() {
  if (filter_ == nullptr) return;
  const int page = viewport()->height();
  verticalScrollBar()->setRange(0, std::max(RowsHeight() + kBottomMargin - page, 0));
  verticalScrollBar()->setPageStep(page);
  if (!isResizing_) UpdateScrollBar();
}

void CRSS_GroupTreeCtrl::UpdateScrollBar() {
  setVerticalScrollBarPolicy(verticalScrollBar()->maximum() > 0 ? Qt::ScrollBarAlwaysOn
                                                                : Qt::ScrollBarAlwaysOff);
}

void CRSS_GroupTreeCtrl::UpdateLine(const QModelIndex& row) {
  const QRect label = visualRect(row);
  viewport()->update(0, label.top(), viewport()->width(), label.height());
}

void CRSS_GroupTreeCtrl::RepaintNewMarks() {
  const int bottom = viewport()->height();
  for (QModelIndex row = indexAt({0, 0}); row.isValid() && visualRect(row).top() < bottom;
       row = indexBelow(row)) {
    const bool isChild = row.parent().isValid();
    const int role = isChild ? GroupTreeModel::IsNewRole : GroupTreeModel::HoldsNewRole;
    if (row.data(role).toBool() && (isChild || !isExpanded(row))) UpdateLine(row);
  }
}

// On focus the base class makes the first row current without selecting it. Home would then do
// nothing, and Down would skip the first row.
void CRSS_GroupTreeCtrl::focusInEvent(QFocusEvent* event) {
  QTreeView::focusInEvent(event);
  if (!SelectedRow().isValid()) selectionModel()->clearCurrentIndex();
}

// What has the keyboard next may act on the list.
void CRSS_GroupTreeCtrl::focusOutEvent(QFocusEvent* event) {
  QTreeView::focusOutEvent(event);
  const bool comesBack =
      event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
  if (!comesBack) rest_.Settle();
}

}  // namespace feedloom
