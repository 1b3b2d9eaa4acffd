#pragma once

#include <QStyledItemDelegate>

#include "ui/tree/TreeSkin.h"

namespace feedloom {

class NewPostAnimation;

// The layout of a row in pixels.
inline constexpr int kGroupRowHeight = 24;
inline constexpr int kChildRowHeight = 20;
inline constexpr int kRowIndentation = 14;  // of a group's label; a child's icon has twice this

// Paints the rows of the tree: the name, and at the right end, lighter, the number of unread posts.
// A closed folder has the marks of its channels in front of that number. Unlike other delegates it
// paints the whole row, including indentation and expand mark: option.rect must be the whole row.
// Interface thread only.
class TreeRowDelegate : public QStyledItemDelegate {
 public:
  // `animation` must outlive the delegate.
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

  int PaintFolderMarks(QPainter& painter, const QRect& area, const QModelIndex& folder) const;
  void PaintNewMark(QPainter& painter, const QRect& square, const QModelIndex& channel) const;

  const TreeSkin skin_;
  NewPostAnimation& animation_;
};

}  // namespace feedloom
