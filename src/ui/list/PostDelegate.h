#pragma once

#include "controls/CVxListCtrl.h"

namespace feedloom {

// Paints the rows of a PostListModel. Unread posts are bold. The read status is a mark that does
// not depend on colour: a dot for unread, a check mark for read, and nothing where posts have none.
class PostDelegate : public VxListDelegate {
 public:
  using VxListDelegate::VxListDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

// Draws the dot of an unread post around `centre`.
void DrawUnreadMark(QPainter& painter, const QPointF& centre, const QColor& colour);

}  // namespace feedloom
