// The functions of CRSS_GroupTreeCtrl that tell a click from the begin of a drag. Where the host
// wants rows to be selected carefully, a row is selected when the button is released: to drag a
// channel must not list its posts.
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <utility>

#include "ui/SavedPosts.h"
#include "ui/tree/CRSS_GroupTreeCtrl.h"

namespace feedloom {

// A press on a group's mark opens and closes the group at once.
bool CRSS_GroupTreeCtrl::TakesPress(const QMouseEvent& press) {
  pressPlace_.reset();
  const QModelIndex row = indexAt(press.pos());
  const bool isOnMark = press.pos().x() < visualRect(row).left();
  if (!isCareful_ || !isLeftPress_ || !row.isValid() || isOnMark) return false;
  pressPlace_ = press.pos();
  pressedRow_ = row;
  return true;
}

void CRSS_GroupTreeCtrl::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  const bool isClick = std::exchange(pressPlace_, std::nullopt).has_value();
  if (!isClick || !pressedRow_.isValid() || indexAt(event->pos()) != pressedRow_) return;
  setCurrentIndex(pressedRow_);
  ReportPress(pressedRow_);
}

void CRSS_GroupTreeCtrl::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!TakesPress(*event)) return QTreeView::mouseDoubleClickEvent(event);
  pressPlace_.reset();
  setExpanded(pressedRow_, !isExpanded(pressedRow_));
}

// The view may be deleted while the user drags.
void CRSS_GroupTreeCtrl::StartDrag() {
  pressPlace_.reset();
  QMimeData* const dragged = model()->mimeData({pressedRow_});
  if (dragged == nullptr) return;
  auto* const drag = new QDrag(this);
  drag->setMimeData(dragged);
  drag->setPixmap(viewport()->grab(visualRect(pressedRow_)));
  const QPointer self(this);
  if (drag->exec(Qt::MoveAction) == Qt::IgnoreAction && self) emit DroppedNowhere();
}

// Posts go into a row, and rows between rows or into one.
void CRSS_GroupTreeCtrl::dragEnterEvent(QDragEnterEvent* event) {
  setDragDropOverwriteMode(event->mimeData()->hasFormat(DraggedPosts::kFormat));
  QTreeView::dragEnterEvent(event);
}

// The toolkit's own delay would also close groups that are open.
void CRSS_GroupTreeCtrl::dragMoveEvent(QDragMoveEvent* event) {
  QTreeView::dragMoveEvent(event);
  const QModelIndex row = indexAt(event->position().toPoint());
  if (row == underDrag_) return;
  underDrag_ = row;
  dragRest_.start();
}

void CRSS_GroupTreeCtrl::dragLeaveEvent(QDragLeaveEvent* event) {
  dragRest_.stop();
  QTreeView::dragLeaveEvent(event);
}

void CRSS_GroupTreeCtrl::dropEvent(QDropEvent* event) {
  dragRest_.stop();
  QTreeView::dropEvent(event);
}

}  // namespace feedloom
