#pragma once

#include "controls/CVxListCtrl.h"

namespace feedloom {

class PostListModel;

// Paints the rows of a PostListModel on two lines of its title column: the title, bold when the
// post is unread, and below it the channel, the date and the first words of the text. Marks the
// words that the model tells; those of the text stand alone where there is no room for all.
class TwoLineDelegate : public VxListDelegate {
 public:
  static constexpr int kRowHeight = 44;  // pixels

  // `model` outlives the delegate; `foundGround` lies behind marked words.
  TwoLineDelegate(const PostListModel& model, const QColor& foundGround, QObject* parent)
      : VxListDelegate(parent), model_(model), foundGround_(foundGround) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  const PostListModel& model_;
  const QColor foundGround_;
};

}  // namespace feedloom
