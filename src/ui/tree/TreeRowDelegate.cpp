#include "ui/tree/TreeRowDelegate.h"

#include <QPainter>
#include <QPainterPath>
#include <utility>

#include "look/SkinDrawing.h"
#include "ui/tree/GroupTreeModel.h"
#include "ui/tree/NewPostAnimation.h"

namespace feedloom {
namespace {

constexpr int kTextGap = 4;   // between icon and label
constexpr int kRightGap = 6;  // between label and the row's right edge
constexpr double kCountOpacity = 0.75;

RowKind KindOf(const QModelIndex& index) {
  return static_cast<RowKind>(index.data(GroupTreeModel::KindRole).toInt());
}

QColor SelectionColor(const QStyleOptionViewItem& option) {
  const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
  return option.palette.color(hasFocus ? QPalette::Active : QPalette::Inactive,
                              QPalette::Highlight);
}

// The centre of a row's first indentation step.
QPointF IndentationCenter(const QRect& row) {
  return {row.left() + kRowIndentation / 2.0, row.top() + row.height() / 2.0};
}

// The rectangle of an icon whose left edge is `left` pixels from that of the row.
QRect IconRect(const QRect& row, int left) {
  const int top = (row.height() - kRowIconSize) / 2;
  return {row.topLeft() + QPoint(left, top), QSize(kRowIconSize, kRowIconSize)};
}

void FillPolygon(QPainter& painter, const QPolygonF& polygon, const QColor& color) {
  QPainterPath path;
  path.addPolygon(polygon);
  painter.fillPath(path, color);
}

// A triangle that points down for an expanded group and right for a collapsed one.
void PaintExpandMark(QPainter& painter, const QRect& row, bool isOpen, const QColor& color) {
  const QPolygonF closed({{-2, -4}, {2.5, 0}, {-2, 4}});
  const QPolygonF open({{-4, -2}, {4, -2}, {0, 2.5}});
  FillPolygon(painter, (isOpen ? open : closed).translated(IndentationCenter(row)), color);
}

// A four-pointed star, used when the image directory has no animation.
void PaintStar(QPainter& painter, QPointF center, const QColor& color) {
  constexpr double kLong = 5.5;
  constexpr double kShort = 1.6;
  const QPolygonF star({{0, -kLong},
                        {kShort, -kShort},
                        {kLong, 0},
                        {kShort, kShort},
                        {0, kLong},
                        {-kShort, kShort},
                        {-kLong, 0},
                        {-kShort, -kShort}});
  FillPolygon(painter, star.translated(center), color);
}

// Paints the unread count at the right end of `area`. Returns the area that is left.
QRect PaintCount(QPainter& painter, const QRect& area, const QModelIndex& index) {
  const int unread = index.data(GroupTreeModel::UnreadRole).toInt();
  if (unread <= 0) return area;
  const QString count = QString::number(unread);
  painter.save();
  QFont font = painter.font();
  font.setBold(false);
  font.setStrikeOut(false);
  painter.setFont(font);
  painter.setOpacity(kCountOpacity);
  painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, count);
  const int room = painter.fontMetrics().horizontalAdvance(count) + kTextGap;
  painter.restore();
  return area.adjusted(0, 0, -room, 0);
}

bool IsFailing(const QModelIndex& channel) {
  return channel.data(GroupTreeModel::StateRole).toInt() < 0;
}

// Sites draw their icons for 16 pixels: one is a little larger than the skin's, around `square`.
void PaintSiteIcon(QPainter& painter, const QRect& square, const QPixmap& icon) {
  constexpr int kSide = 16;
  constexpr int kMargin = (kSide - kRowIconSize) / 2;
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QRect(square.topLeft() - QPoint(kMargin, kMargin), QSize(kSide, kSide)), icon);
  painter.restore();
}

// Elides a name that is too long.
void PaintName(QPainter& painter, const QRect& area, const QModelIndex& index) {
  const QString name = index.data(GroupTreeModel::NameRole).toString();
  painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(name, Qt::ElideRight, area.width()));
}

}  // namespace

TreeRowDelegate::TreeRowDelegate(TreeSkin skin, NewPostAnimation& animation, QObject* parent)
    : QStyledItemDelegate(parent), skin_(std::move(skin)), animation_(animation) {}

QSize TreeRowDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                const QModelIndex& index) const {
  return {0, IsGroup(KindOf(index)) ? kGroupRowHeight : kChildRowHeight};
}

void TreeRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  const bool isGroup = IsGroup(KindOf(index));
  QFont font = option.font;
  font.setBold(index.data(GroupTreeModel::UnreadRole).toInt() > 0);
  font.setStrikeOut(index.data(GroupTreeModel::IsDeadRole).toBool());

  painter->save();
  painter->setRenderHint(QPainter::Antialiasing);
  painter->setFont(font);
  painter->setPen(option.palette.color(QPalette::Text));
  if (option.state.testFlag(QStyle::State_Selected)) {
    painter->fillRect(option.rect, SelectionColor(option));
  } else if (isGroup) {
    DrawThreePieces(*painter, option.rect, HeaderOf(index));
  }
  isGroup ? PaintGroup(*painter, option, index) : PaintChild(*painter, option, index);
  painter->restore();
  const auto current = QStyle::State_Selected | QStyle::State_HasFocus;
  if ((option.state & current) == current) DrawSkinFocus(*painter, option.palette, option.rect, 0);
}

void TreeRowDelegate::PaintGroup(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  if (option.state.testFlag(QStyle::State_Children)) {
    PaintExpandMark(painter, option.rect, option.state.testFlag(QStyle::State_Open),
                    painter.pen().color());
  }
  const bool isClosed = !option.state.testFlag(QStyle::State_Open);
  const QRect label = option.rect.adjusted(kRowIndentation + kTextGap, 0, -kRightGap, 0);
  const QRect left = PaintCount(painter, label, index);
  const int marks = isClosed ? PaintFolderMarks(painter, left, index) : 0;
  PaintName(painter, left.adjusted(0, 0, -marks, 0), index);
}

// Returns the width of the marks, which stand at the right end of `area`.
int TreeRowDelegate::PaintFolderMarks(QPainter& painter, const QRect& area,
                                      const QModelIndex& folder) const {
  int width = 0;
  const auto place = [&] {
    width += kRowIconSize + kTextGap;
    return IconRect(area, area.width() - width);
  };
  if (folder.data(GroupTreeModel::HoldsFailureRole).toBool()) {
    painter.drawPixmap(place(), skin_.failingChannelIcon);
  }
  if (folder.data(GroupTreeModel::HoldsNewRole).toBool()) PaintNewMark(painter, place(), folder);
  return width;
}

void TreeRowDelegate::PaintChild(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
  if (index.data(GroupTreeModel::IsNewRole).toBool()) {
    PaintNewMark(painter, IconRect(option.rect, kRowIndentation), index);
  }
  const int left = 2 * kRowIndentation;
  const QRect square = IconRect(option.rect, left);
  const auto siteIcon = index.data(Qt::DecorationRole).value<QPixmap>();
  siteIcon.isNull() || IsFailing(index) ? painter.drawPixmap(square, IconOf(index))
                                        : PaintSiteIcon(painter, square, siteIcon);
  const QRect label = option.rect.adjusted(left + kRowIconSize + kTextGap, 0, -kRightGap, 0);
  PaintName(painter, PaintCount(painter, label, index), index);
}

void TreeRowDelegate::PaintNewMark(QPainter& painter, const QRect& square,
                                   const QModelIndex& channel) const {
  const bool byMessage = channel.data(GroupTreeModel::IsAnimatedByMessageRole).toBool();
  const QPixmap frame =
      animation_.Frame(byMessage ? NewPostAnimation::kByMessage : NewPostAnimation::kByPainting);
  frame.isNull() ? PaintStar(painter, QRectF(square).center(), skin_.newMark)
                 : painter.drawPixmap(square, frame);
}

const ThreePieces& TreeRowDelegate::HeaderOf(const QModelIndex& group) const {
  return KindOf(group) == RowKind::Folder ? skin_.folderHeader : skin_.cabinetHeader;
}

const QPixmap& TreeRowDelegate::IconOf(const QModelIndex& child) const {
  if (KindOf(child) == RowKind::Cabinet) {
    const bool hasUnread = child.data(GroupTreeModel::UnreadRole).toInt() > 0;
    return hasUnread ? skin_.unreadCabinetIcon : skin_.cabinetIcon;
  }
  return IsFailing(child) ? skin_.failingChannelIcon : skin_.channelIcon;
}

}  // namespace feedloom
