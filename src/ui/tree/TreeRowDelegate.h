#pragma once

#include <QStyledItemDelegate>

#include "ui/tree/TreeSkin.h"

namespace feedloom {

class NewPostAnimation;

// Where the parts of a row lie, in pixels.
inline constexpr int kGroupRowHeight = 24;
inline constexpr int kChildRowHeight = 20;
inline constexpr int kRowIndentation = 14;  // a group's contents; a child's lie twice as far

// Paints the rows of the tree. Unlike other delegates it paints a whole row, indentation and
// expand mark too: option.rect is the row's.
class TreeRowDelegate : public QStyledItemDelegate {
 public:
  // `animation` outlives the delegate.
  TreeRowDelegate(TreeSkin skin, NewPostAnimation& animation, QObject* parent);

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  void PaintGroup(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const;
  void PaintChild(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const;
  const ThreePieces& HeaderOf(const QModelIndex& group) const;
  const QPixmap& IconOf(const QModelIndex& child) const;

  void PaintNewMark(QPainter& painter, const QRect& square, const QModelIndex& channel) const;

  const TreeSkin skin_;
  NewPostAnimation& animation_;
};

}  // namespace feedloom
