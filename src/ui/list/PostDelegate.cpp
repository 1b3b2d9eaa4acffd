#include "ui/list/PostDelegate.h"

#include <QApplication>
#include <QPainter>

#include "ui/list/MarkedLine.h"
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
  const auto words = index.column() == kTitleColumn
                         ? FindWords(index.data().toString(), model_.Marked())
                         : std::vector<FoundWord>();
  if (!words.empty()) return PaintMarked(*painter, option, index, words);
  VxListDelegate::paint(painter, option, index);
  if (index.column() != kReadColumn || !ReadStatus(index).isValid()) return;
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  const auto paintMark = IsUnread(index) ? DrawUnreadMark : PaintReadMark;
  paintMark(*painter, QRectF(option.rect).center(), TextColour(option));
  painter->restore();
}

// The text lies where the style would draw it.
void PostDelegate::PaintMarked(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index,
                               const std::vector<FoundWord>& words) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QStyle& style = *QApplication::style();
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
  const QRect place = style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget)
                          .adjusted(margin, 0, -margin, 0);
  cell.text.clear();
  style.drawControl(QStyle::CE_ItemViewItem, &cell, &painter, cell.widget);
  painter.save();
  DrawLine(painter, cell.font, place,
           {.text = index.data().toString(),
            .words = words,
            .colour = TextColour(option),
            .wordColour = cell.palette.color(QPalette::Text),
            .wordGround = foundGround_});
  painter.restore();
}

}  // namespace feedloom
