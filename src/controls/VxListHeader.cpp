#include "controls/VxListHeader.h"

#include <QAbstractItemModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "controls/AccessibleRole.h"
#include "look/SkinDrawing.h"

namespace feedloom {
namespace {

constexpr int kWidthStep = 10;  // pixels

}  // namespace

// The role is not ColumnHeader: the toolkit gives that one to the header's columns.
VxListHeader::VxListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  SetAccessibleRole(*this, QAccessible::Button);
}

void VxListHeader::setModel(QAbstractItemModel* newModel) {
  for (const QMetaObject::Connection& old : modelConnections_) disconnect(old);
  QHeaderView::setModel(newModel);
  if (model() == nullptr) return;  // a view without a model sets an internal empty one
  modelConnections_ = {
      connect(newModel, &QAbstractItemModel::headerDataChanged, this, &VxListHeader::UpdateName),
      connect(newModel, &QAbstractItemModel::modelReset, this, &VxListHeader::UpdateName)};
  UpdateName();
}

// Unknown keys are not passed on, which would let them act on the rows.
void VxListHeader::keyPressEvent(QKeyEvent* event) {
  const bool isWidth = event->modifiers().testFlag(Qt::ControlModifier);
  switch (event->key()) {
    case Qt::Key_Left:
      return isWidth ? Widen(-kWidthStep) : Choose(chosen_ - 1);
    case Qt::Key_Right:
      return isWidth ? Widen(kWidthStep) : Choose(chosen_ + 1);
    case Qt::Key_Home:
      return Choose(0);
    case Qt::Key_End:
      return Choose(count() - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!event->isAutoRepeat()) SortByChosen();
      return;
    case Qt::Key_Down:
    case Qt::Key_Escape:
      emit KeyboardLeft();
      return;
    default:
      return;
  }
}

void VxListHeader::focusInEvent(QFocusEvent* event) {
  QHeaderView::focusInEvent(event);
  Choose(chosen_);
}

void VxListHeader::Choose(int section) {
  if (count() == 0) return;
  chosen_ = std::clamp(section, 0, count() - 1);
  // The header is scrolled by the list's scroll bar.
  auto* const list = qobject_cast<QAbstractScrollArea*>(parentWidget());
  if (list != nullptr) {
    QScrollBar& bar = *list->horizontalScrollBar();
    const int left = sectionPosition(chosen_);
    const int beyond = left + sectionSize(chosen_) - viewport()->width();
    bar.setValue(std::min(std::max(bar.value(), beyond), left));
  }
  UpdateName();
  viewport()->update();
}

// Ascending, then descending, then unsorted.
void VxListHeader::SortByChosen() {
  if (!sectionsClickable()) return;
  const bool isSorted = sortIndicatorSection() == chosen_;
  const bool isLast = isSorted && sortIndicatorOrder() == Qt::DescendingOrder;
  setSortIndicator(isLast ? -1 : chosen_,
                   isSorted && !isLast ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void VxListHeader::Widen(int pixels) {
  if (sectionResizeMode(chosen_) != Interactive) return;
  resizeSection(chosen_, std::max(sectionSize(chosen_) + pixels, minimumSectionSize()));
  Choose(chosen_);
}

void VxListHeader::UpdateName() {
  if (model() == nullptr) return;  // the header is created before the view's model is set
  const QVariant spoken = model()->headerData(chosen_, orientation(), Qt::AccessibleTextRole);
  const QVariant shown = model()->headerData(chosen_, orientation(), Qt::DisplayRole);
  setAccessibleName((spoken.isValid() ? spoken : shown).toString());
}

void VxListHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  painter->save();
  QHeaderView::paintSection(painter, rect, section);
  painter->restore();
  if (hasFocus() && section == chosen_) DrawSkinFocus(*painter, palette(), rect, 1);
}

}  // namespace feedloom
