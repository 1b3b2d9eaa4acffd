// A post list pane on a real store, shown off screen, and what a user sees and does there.
#pragma once

#include <QTest>
#include <QtWidgets>

#include "controls/CVxComboBox.h"
#include "controls/CVxListCtrl.h"
#include "ui/CommandKeys.h"
#include "ui/Fakes.h"
#include "ui/list/CRSS_RightTopContainer.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/PostListModel.h"

namespace feedloom {

using Strings = std::vector<std::string>;

// Lists in a pane, as the frame itself does.
struct ListingFrame : FakeDesk, FakeReading, FakeSubscribing {
  using Wish = std::pair<const char*, const char*>;
  explicit ListingFrame(const Wish& wish)
      : FakeReading(state), FakeSubscribing(static_cast<FakeDesk&>(*this)) {
    if (wish.first != nullptr) skin.SetHostValue(wish.first, wish.second);
  }
  void ListPosts(ListMode mode, PostList list, FirstPost first) override {
    FakeReading::ListPosts(mode, list, first);
    pane->Fill(std::move(list));
    pane->ShowFirst(first);
  }
  CRSS_RightTopContainer* pane = nullptr;
};

struct PostListPane : testing::Test {
  // `wish` is what the host asks for: a name and a value.
  explicit PostListPane(const ListingFrame::Wish& wish = {}) : frame_(wish) {
    frame_.pane = &pane_;
    frame_.nextAnswer = MsgBoxAnswer::Consented;
    pane_.resize(560, 240);
    pane_.show();
    pane_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&pane_));
    list_.setFocus();
    // The frame's keys.
    OnKeysOf(kCommandNextUnread, pane_, [this] { pane_.GoToUnread(true); });
    OnKeysOf(kCommandPreviousUnread, pane_, [this] { pane_.GoToUnread(false); });
    OnKeysOf(kCommandDelete, pane_, [this] { pane_.Run(kCommandDelete); });
    OnKeysOf(kCommandToggleRead, pane_, [this] { pane_.Run(kCommandToggleRead); });
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
  // Such posts of a channel in an empty store.
  PostList ChannelPosts(int newest) {
    frame_.db.AddChannelWithPosts(1, "News", newest);
    return NumberedPosts(newest);
  }

  void Press(int row, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(list_.viewport(), Qt::LeftButton, keys,
                      list_.visualRect(Index(row)).center());
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, keys);
  }

  QModelIndex Index(int row) const { return list_.model()->index(row, kTitleColumn); }
  std::string Title(int row) const { return Index(row).data().toString().toStdString() + " "; }
  std::string OnLine(int line) const {
    return Title(list_.indexAt({0, line * CVxListCtrl::kRowHeight}).row());
  }
  // The titles of all rows, read ones behind "-", selected ones behind ">".
  std::string Rows() const {
    std::string rows;
    for (int row = 0; row < list_.model()->rowCount(); ++row) {
      rows += list_.selectionModel()->isSelected(Index(row)) ? ">" : "";
      rows += Index(row).data(PostListModel::kIsReadRole).toBool() ? "-" : "";
      rows += Title(row);
    }
    return rows;
  }

  ListingFrame frame_;
  CRSS_RightTopContainer pane_{frame_, frame_, frame_, nullptr};
  CVxListCtrl& list_ = *pane_.findChild<CVxListCtrl*>();
  CRSS_RightTopToolBarWnd& bar_ = *pane_.findChild<CRSS_RightTopToolBarWnd*>();
  QLineEdit& word_ = *bar_.findChild<QLineEdit*>();
  QAbstractButton& button_ = *bar_.findChild<QAbstractButton*>();
};

}  // namespace feedloom
