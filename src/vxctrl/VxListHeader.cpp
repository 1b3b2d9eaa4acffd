#include "vxctrl/VxListHeader.h"

#include <QAbstractItemModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "vxctrl/AccessibleRole.h"
#include "vxctrl/SkinLook.h"

namespace feedloom {
namespace {

constexpr int kWidthStep = 10;  // pixels

}  // namespace

// Not a column's header: that is what the toolkit takes the parts of a header for.
VxListHeader::VxListHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  SetAccessibleRole(*this, QAccessible::Button);
}

void VxListHeader::setModel(QAbstractItemModel* newModel) {
  for (const QMetaObject::Connection& news : news_) disconnect(news);
  QHeaderView::setModel(newModel);
  if (model() == nullptr) return;  // as long as the list has none, it hands over a stand-in
  news_ = {
      connect(newModel, &QAbstractItemModel::headerDataChanged, this, &VxListHeader::UpdateName),
      connect(newModel, &QAbstractItemModel::modelReset, this, &VxListHeader::UpdateName)};
  UpdateName();
}

// No key goes on to the rows, which the keyboard has left.
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
  // The bar is the list's: a header has none.
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

// Ascending, then descending, then as the rows came.
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
  if (model() == nullptr) return;  // a view takes its header before its model
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
