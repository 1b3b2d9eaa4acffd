// A post list pane on a real store, shown off screen, and what a user sees and does there.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "store/Cabinets.h"
#include "store/Posts.h"
#include "ui/FakeFrame.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/list/PostListModel.h"
#include "vxctrl/CVxListCtrl.h"

namespace feedloom {

using Strings = std::vector<std::string>;
using ReadPosts = std::vector<std::pair<int, bool>>;

// Lists in a pane, when there is one, as the frame itself does.
class ListingFrame : public FakeFrame {
 public:
  void ListPosts(ListMode mode, PostList list, FirstShown shownFirst) override {
    FakeFrame::ListPosts(mode, list, shownFirst);
    if (!listPane) return;
    listPane->Fill(std::move(list));
    listPane->ShowFirst(shownFirst);
  }

  CRSS_RightTopContainer* listPane = nullptr;
};

class PostListPane : public testing::Test {
 protected:
  PostListPane() {
    frame_.state.unreadTotal = 10;
    pane_.resize(560, 240);
    ShowPane();
    list_.setFocus();
  }

  void ShowPane() {
    pane_.show();
    pane_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&pane_));
  }

  // Unread posts "Post <newest>" down to "Post 1" that are not in the store; the number is the id.
  static PostList NumberedPosts(int newest) {
    PostList list;
    for (int number = newest; number >= 1; --number) {
      PostRow& post = list.posts.emplace_back();
      post.id = number;
      post.published = "2008-05-01 10:00:00";
      post.title = "Post " + std::to_string(number);
      post.ownerTitle = "News";
    }
    return list;
  }

  // The posts of a new channel with `count` unread posts, newest first.
  PostList ChannelPosts(int count) {
    channel_ = frame_.db.AddChannelWithPosts(1, "News", count);
    ChannelWithPosts loaded;
    EXPECT_TRUE(LoadChannelWithPosts(frame_.GetStore(), channel_, loaded));
    return {.posts = std::move(loaded.posts)};
  }

  // The posts of a new cabinet, "kept 3" first.
  PostList CabinetPosts(int count) {
    cabinet_ = AddCabinet(frame_.GetStore(), "c", 1);
    for (int number = 1; number <= count; ++number) {
      InsertScrapPost(frame_.GetStore(), cabinet_, "kept " + std::to_string(number), "l",
                      "2008-05-0" + std::to_string(number), "");
    }
    CabinetWithPosts loaded;
    EXPECT_TRUE(LoadCabinetWithPosts(frame_.GetStore(), cabinet_, loaded));
    return {.posts = std::move(loaded.posts), .areScrapPosts = true};
  }

  // From now on every such statement on the rows of a table fails.
  void RefuseInStore(const std::string& statement, const std::string& rows) {
    frame_.db.Sql("create trigger no_" + statement + " before " + statement + " on " + rows +
                  " begin select raise(abort, 'refused'); end");
  }

  void Press(Qt::MouseButton button, int row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(list_.viewport(), button, keys, list_.visualRect(Index(row)).center());
  }
  void Key(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

  // As the system asks for a menu: with the right button at a point of the rows, or by the key.
  void AskForMenu(const QPoint& point) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, list_.viewport()->mapToGlobal(point));
    QApplication::sendEvent(list_.viewport(), &event);
  }
  void PressMenuKey() {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(list_.viewport(), &event);
  }
  QMenu* OpenMenu() const { return pane_.findChild<QMenu*>(); }
  void Choose(Command command) {
    PressMenuKey();
    ASSERT_NE(OpenMenu(), nullptr);
    const QList<QAction*> items = OpenMenu()->actions();
    const auto item = std::ranges::find_if(
        items, [&](const QAction* action) { return action->data().toInt() == command; });
    ASSERT_TRUE(item != items.end() && (*item)->isEnabled()) << command;
    (*item)->trigger();
    CloseMenu();
    QApplication::processEvents();  // the command comes when the menu has closed
  }
  void CloseMenu() {
    delete OpenMenu();
    ShowPane();
  }

  QModelIndex Index(int row) const { return list_.model()->index(row, kTitleColumn); }
  std::string Title(int row) const { return Index(row).data().toString().toStdString(); }
  bool IsRead(int row) const { return Index(row).data(PostListModel::kIsReadRole).toBool(); }
  int UnreadStored() { return frame_.db.Count("TB_POST where post_readStatus = 0"); }
  std::string TopTitle() const { return Title(list_.indexAt({0, 0}).row()); }
  std::string CurrentTitle() const { return Title(list_.currentIndex().row()); }

  Strings Titles() const {
    Strings titles;
    for (int row = 0; row < list_.model()->rowCount(); ++row) titles.push_back(Title(row));
    return titles;
  }
  Strings SelectedTitles() const {
    Strings titles;
    for (const int row : list_.SelectedRows()) titles.push_back(Title(row));
    return titles;
  }

  ListingFrame frame_;
  CRSS_RightTopContainer pane_{frame_, nullptr};
  CVxListCtrl& list_ = *pane_.findChild<CVxListCtrl*>();
  int channel_ = 0;
  int cabinet_ = 0;
};

}  // namespace feedloom
