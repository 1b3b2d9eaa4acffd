#include "ui/list/CRSS_RightTopContainer.h"

#include <QVBoxLayout>
#include <utility>

#include "store/ReadStatus.h"
#include "ui/Frame.h"
#include "ui/list/ListPlace.h"
#include "ui/list/PostDelegate.h"
#include "ui/list/PostListModel.h"
#include "vxctrl/CVxListCtrl.h"

namespace feedloom {

CRSS_RightTopContainer::CRSS_RightTopContainer(Frame& frame, QWidget* parent)
    : QWidget(parent),
      frame_(frame),
      model_(*new PostListModel(frame.TheStore().TextCodePage(), this)),
      list_(*new CVxListCtrl(this)) {
  list_.setModel(&model_);
  list_.setItemDelegate(new PostDelegate(&list_));
  list_.SetColumnWidths({30, 278, 100, 100});
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&list_);
  setFocusProxy(&list_);
  connect(&list_, &CVxListCtrl::RowClicked, this, &CRSS_RightTopContainer::ShowClicked);
  connect(&list_, &CVxListCtrl::RowEntered, this, &CRSS_RightTopContainer::Show);
}

void CRSS_RightTopContainer::Fill(PostList list) {
  areScrapPosts_ = list.areScrapPosts;
  model_.SetPosts(std::move(list.posts));
  list_.scrollToTop();
}

void CRSS_RightTopContainer::Refill(PostList list) {
  const ListPlace place = TakePlace(list_, model_);
  areScrapPosts_ = list.areScrapPosts;
  model_.SetPosts(std::move(list.posts));
  RestorePlace(list_, model_, place);
}

void CRSS_RightTopContainer::ShowClicked(int row) {
  // Each click counts as one post read, whether it was read before or not: the counter is only a
  // feed for the announcement of new posts.
  --frame_.State().unreadTotal;
  Show(row);
}

void CRSS_RightTopContainer::Show(int index) {
  if (index < 0 || index >= model_.rowCount()) {
    frame_.ShowMainPage();
    return;
  }
  frame_.ShowPost(model_.Posts()[static_cast<std::size_t>(index)]);
  if (frame_.State().listMode != ListMode::WebDirectory) MarkRead(index);
  SelectRow(index);
}

void CRSS_RightTopContainer::MarkRead(int row) {
  const PostRow& post = model_.Posts()[static_cast<std::size_t>(row)];
  if (post.readStatus != 0) return;
  const auto markRead = areScrapPosts_ ? MarkScrapPostsRead : MarkPostsRead;
  if (!markRead(frame_.TheStore(), 1, {&post.id, 1})) return;
  model_.MarkRead(row);
  frame_.PostWasRead(post.ownerId, areScrapPosts_);
}

void CRSS_RightTopContainer::SelectRow(int row) {
  // Beside the rows that are selected already: a click with Ctrl or Shift shows a post too. The
  // title is the current cell, which a typed letter searches and a screen reader reads.
  list_.selectionModel()->setCurrentIndex(model_.index(row, PostListModel::kTitleColumn),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

}  // namespace feedloom
