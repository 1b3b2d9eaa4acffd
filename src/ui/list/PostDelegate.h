#pragma once

#include "vxctrl/CVxListCtrl.h"

namespace feedloom {

// Paints the rows of a PostListModel: unread posts bold, and the read status as a mark that can be
// told without colour, a dot for unread and a check for read.
class PostDelegate : public VxListDelegate {
 public:
  using VxListDelegate::VxListDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace feedloom
