// A post list pane on a real store, shown off screen, and what a user sees and does there.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "skin/Keys.h"
#include "store/Cabinets.h"
#include "store/Posts.h"
#include "ui/FakeFrame.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/PostListModel.h"
#include "vxctrl/CVxComboBox.h"
#include "vxctrl/CVxListCtrl.h"

namespace feedloom {

using Strings = std::vector<std::string>;

// Lists in a pane, when there is one, as the frame itself does.
struct ListingFrame : FakeFrame {
  void ListPosts(ListMode mode, PostList list, FirstShown first) override {
    FakeFrame::ListPosts(mode, list, first);
    if (pane) pane->Fill(std::move(list)), pane->ShowFirst(first);
  }
  CRSS_RightTopContainer* pane = nullptr;
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
    for (int id = newest; id >= 1; --id) {
      list.posts.emplace_back().id = id;
      list.posts.back().title = "Post " + std::to_string(id);
    }
    return list;
  }
  // The posts of a new channel with `count` unread posts, newest first.
  PostList ChannelPosts(int count) {
    ChannelWithPosts loaded;
    channel_ = frame_.db.AddChannelWithPosts(1, "News", count);
    EXPECT_TRUE(LoadChannelWithPosts(frame_.GetStore(), channel_, loaded));
    return {.posts = std::move(loaded.posts)};
  }
  // The posts of a new cabinet: "kept 2" and "kept 1".
  PostList CabinetPosts() {
    CabinetWithPosts loaded;
    cabinet_ = AddCabinet(frame_.GetStore(), "c", 1);
    for (const char* const title : {"kept 1", "kept 2"}) {
      InsertScrapPost(frame_.GetStore(), cabinet_, title, "l", title, "");
    }
    EXPECT_TRUE(LoadCabinetWithPosts(frame_.GetStore(), cabinet_, loaded));
    return {.posts = std::move(loaded.posts), .areScrapPosts = true};
  }
  void RefuseInStore(const std::string& statement) {
    frame_.db.Sql("create trigger refuse before " + statement +
                  " begin select raise(abort, ''); end");
  }

  void Press(Qt::MouseButton button, int row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(list_.viewport(), button, keys, list_.visualRect(Index(row)).center());
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, keys);
  }
  // Null when there is none.
  QMenu* OpenMenu(QContextMenuEvent::Reason reason, const QPoint& point = {}) {
    QContextMenuEvent event(reason, point, list_.viewport()->mapToGlobal(point));
    QApplication::sendEvent(list_.viewport(), &event);
    return pane_.findChild<QMenu*>();
  }
  void Choose(Command command) {
    QMenu* const menu = OpenMenu(QContextMenuEvent::Keyboard);
    for (QAction* const item : menu->actions()) {
      if (item->data().toInt() == command) item->trigger();
    }
    delete menu;
    ShowPane();
    QApplication::processEvents();  // the command comes when the menu has closed
  }

  QModelIndex Index(int row) const { return list_.model()->index(row, kTitleColumn); }
  std::string Title(int row) const { return Index(row).data().toString().toStdString(); }
  std::string TopTitle() const { return Title(list_.indexAt({0, 0}).row()); }
  int RowCount() const { return list_.model()->rowCount(); }
  // The titles of all rows, read ones in parentheses, selected ones behind ">".
  std::string Rows() const {
    std::string rows;
    for (int row = 0; row < RowCount(); ++row) {
      rows += list_.selectionModel()->isSelected(Index(row)) ? ">" : "";
      const bool isRead = Index(row).data(PostListModel::kIsReadRole).toBool();
      rows += (isRead ? "(" + Title(row) + ")" : Title(row)) + " ";
    }
    return rows;
  }
  std::string Selected() const {
    std::string titles;
    for (const int row : list_.SelectedRows()) titles += Title(row) + " ";
    return titles;
  }
  std::string UnreadStored() const {
    return frame_.db.Value(
        "select group_concat(post_title) from TB_POST where not post_readStatus");
  }

  ListingFrame frame_;
  CRSS_RightTopContainer pane_{frame_, nullptr};
  CVxListCtrl& list_ = *pane_.findChild<CVxListCtrl*>();
  CRSS_RightTopToolBarWnd& bar_ = *pane_.findChild<CRSS_RightTopToolBarWnd*>();
  QComboBox& scope_ = *bar_.findChild<QComboBox*>();
  QLineEdit& word_ = *bar_.findChild<QLineEdit*>();
  QAbstractButton& button_ = *bar_.findChild<QAbstractButton*>();
  int channel_ = 0, cabinet_ = 0;
};

}  // namespace feedloom
