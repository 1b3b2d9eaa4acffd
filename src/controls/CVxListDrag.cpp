// The functions of CVxListCtrl that tell a click from the begin of a drag.
#include <QApplication>
#include <QDrag>
#include <QMimeData>

#include "controls/CVxListCtrl.h"

namespace feedloom {

bool CVxListCtrl::TakesPress(const QMouseEvent& press) {
  press_.reset();
  const QModelIndex row = indexAt(press.pos());
  const bool isPlain = press.button() == Qt::LeftButton && press.modifiers() == Qt::NoModifier;
  if (!dragged_ || !isPlain || !row.isValid()) return false;
  press_.reset(press.clone());
  pressedRow_ = row;
  return true;
}

void CVxListCtrl::mouseMoveEvent(QMouseEvent* event) {
  if (!press_) return QTreeView::mouseMoveEvent(event);
  const int way = (event->pos() - press_->pos()).manhattanLength();
  if (way >= QApplication::startDragDistance()) StartDrag();
}

// Rows may have come or gone since the press.
void CVxListCtrl::mouseReleaseEvent(QMouseEvent* event) {
  const auto press = std::exchange(press_, nullptr);
  const auto isPressed = [&](const QPoint& at) { return indexAt(at) == pressedRow_; };
  if (press && isPressed(press->pos()) && isPressed(event->pos())) Press(*press);
  QTreeView::mouseReleaseEvent(event);
}

// The list may be deleted while the user drags.
void CVxListCtrl::StartDrag() {
  press_.reset();
  QMimeData* const dragged = pressedRow_.isValid() ? dragged_(pressedRow_) : nullptr;
  if (dragged == nullptr) return;
  QRect row = visualRect(pressedRow_);
  row.setRight(viewport()->width() - 1);
  auto* const drag = new QDrag(this);
  drag->setMimeData(dragged);
  drag->setPixmap(viewport()->grab(row.translated(-row.left(), 0)));
  const QPointer self(this);
  if (drag->exec(Qt::CopyAction) == Qt::IgnoreAction && self) emit DroppedNowhere();
}

}  // namespace feedloom
