#pragma once

#include "controls/CVxListCtrl.h"

namespace feedloom {

// Paints the rows of a PostListModel on two lines of its title column: the title, bold when the
// post is unread, and below it the channel, the date and the first words of the text.
class TwoLineDelegate : public VxListDelegate {
 public:
  static constexpr int kRowHeight = 44;  // pixels

  using VxListDelegate::VxListDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
};

}  // namespace feedloom
