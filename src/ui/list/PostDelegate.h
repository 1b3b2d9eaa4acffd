#pragma once

#include "controls/CVxListCtrl.h"
#include "ui/FoundWords.h"

namespace feedloom {

class PostListModel;

// Paints the rows of a PostListModel. Unread posts are bold. The read status is a mark that does
// not depend on colour: a dot for unread, a check mark for read, and nothing where posts have none.
// In titles the words are marked that the model tells.
class PostDelegate : public VxListDelegate {
 public:
  // `model` outlives the delegate; `foundGround` lies behind marked words.
  PostDelegate(const PostListModel& model, const QColor& foundGround, QObject* parent)
      : VxListDelegate(parent), model_(model), foundGround_(foundGround) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  void PaintMarked(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                   const std::vector<FoundWord>& words) const;

  const PostListModel& model_;
  const QColor foundGround_;
};

// Draws the dot of an unread post around `centre`.
void DrawUnreadMark(QPainter& painter, const QPointF& centre, const QColor& colour);

}  // namespace feedloom
