#include "ui/list/PostDelegate.h"

#include <QPainter>

#include "ui/list/PostListModel.h"

namespace feedloom {
namespace {

QVariant ReadStatus(const QModelIndex& index) { return index.data(PostListModel::kIsReadRole); }

bool IsUnread(const QModelIndex& index) {
  const QVariant status = ReadStatus(index);
  return status.isValid() && !status.toBool();
}

QColor TextColour(const QStyleOptionViewItem& option) {
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const auto group = !option.state.testFlag(QStyle::State_Enabled) ? QPalette::Disabled
                     : option.state.testFlag(QStyle::State_Active) ? QPalette::Active
                                                                   : QPalette::Inactive;
  return option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

void PaintReadMark(QPainter& painter, const QPointF& centre, const QColor& colour) {
  const QPointF check[] = {centre + QPointF(-3.5, 0), centre + QPointF(-1, 2.5),
                           centre + QPointF(3.5, -3)};
  painter.setPen(QPen(colour, 1.2));
  painter.drawPolyline(check, 3);
}

}  // namespace

void DrawUnreadMark(QPainter& painter, const QPointF& centre, const QColor& colour) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawEllipse(centre, 3.5, 3.5);
}

void PostDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  VxListDelegate::initStyleOption(option, index);
  option->font.setBold(IsUnread(index));
  if (index.column() == kReadColumn) option->text.clear();  // paint() draws a mark instead
}

void PostDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  VxListDelegate::paint(painter, option, index);
  if (index.column() != kReadColumn || !ReadStatus(index).isValid()) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const auto paintMark = IsUnread(index) ? DrawUnreadMark : PaintReadMark;
  paintMark(*painter, QRectF(option.rect).center(), TextColour(option));
  painter->restore();
}

}  // namespace feedloom
