// What the list's menu, its keys and its search box do to the store, the rows and the frame.
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

class PostCommandsTest : public PostListPane {
 protected:
  PostCommandsTest() { frame_.nextAnswer = MsgBoxAnswer::Consented; }
  void ListAndSelect(PostList list, std::initializer_list<int> rows) {
    pane_.Fill(std::move(list));
    for (const int row : rows) {
      list_.selectionModel()->setCurrentIndex(
          Index(row), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
};

TEST_F(PostCommandsTest, TheMenuOffersWhatCanBeDoneWithTheSelectedRows) {
  EXPECT_EQ(OpenMenu(QContextMenuEvent::Mouse), nullptr) << "there are no rows";
  const struct {
    ListMode mode;
    std::initializer_list<int> rows;
    bool canScrap;
    const char* items;  // initials: Read, Unread, Delete, All, Scrap; grey ones in parentheses
  } cases[] = {
      {ListMode::Selection, {}, true, "A"},        {ListMode::Selection, {0}, true, "RDAS"},
      {ListMode::Selection, {1}, false, "UDA(S)"}, {ListMode::Selection, {0, 1}, true, "RUDAS"},
      {ListMode::Today, {}, true, "(A)"},          {ListMode::Today, {1}, true, "UD(A)S"},
      {ListMode::WebDirectory, {}, true, "S"},     {ListMode::WebDirectory, {0, 1}, false, "(S)"},
      {static_cast<ListMode>(3), {0}, true, ""}};
  for (const auto& [mode, rows, canScrap, items] : cases) {
    frame_.state.listMode = mode;
    frame_.actions.chooseCabinet = canScrap ? [] { return 7; } : decltype(Actions::chooseCabinet)();
    PostList list = NumberedPosts(2);
    list.posts[1].readStatus = 1;
    ListAndSelect(std::move(list), rows);
    const std::unique_ptr<QMenu> menu(OpenMenu(QContextMenuEvent::Mouse, {60, 70}));
    std::string shown;
    for (const QAction* const item : menu ? menu->actions() : QList<QAction*>()) {
      const std::string initial(1, "RUDA???S"[item->data().toInt() - kCommandMarkRead]);
      shown += item->isEnabled() ? initial : "(" + initial + ")";
    }
    EXPECT_EQ(shown, items);
    EXPECT_TRUE(!menu || menu->pos() == list_.viewport()->mapToGlobal(QPoint(60, 70)));
  }
  frame_.state.listMode = ListMode::Today;
  pane_.Show(1);
  const std::unique_ptr<QMenu> byKey(OpenMenu(QContextMenuEvent::Keyboard));
  EXPECT_EQ(byKey->pos(), list_.viewport()->mapToGlobal(QPoint(0, 38))) << "below the row";
}

TEST_F(PostCommandsTest, MarkingAndDeletingChangeTheSelectedPostsAndRecountOnce) {
  frame_.db.AddChannelWithPosts(2, "Other", 1);
  ListAndSelect(ChannelPosts(6), {1, 3});
  Choose(kCommandMarkRead);
  EXPECT_EQ(UnreadStored(), "Post 1,Post 1,Post 2,Post 4,Post 6");
  EXPECT_EQ(Rows(), "Post 6 >(Post 5) Post 4 >(Post 3) Post 2 Post 1 ");
  Choose(kCommandMarkUnread);
  EXPECT_EQ(Rows(), "Post 6 >Post 5 Post 4 >Post 3 Post 2 Post 1 ");
  Key(Qt::Key_Delete);  // shows the post that takes the first one's place
  EXPECT_EQ(Rows(), "Post 6 >(Post 4) Post 2 Post 1 ");
  EXPECT_EQ(UnreadStored(), "Post 1,Post 1,Post 2,Post 6");
  list_.clearSelection();
  pane_.Show(3);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Rows(), "Post 6 (Post 4) >(Post 2) ") << "the last one that is left";
  Choose(kCommandDeleteAll);
  EXPECT_EQ(frame_.shown, (Strings{"Post 4", "Post 1", "Post 2", "(main page)"}));
  EXPECT_EQ(frame_.db.Count("TB_POST"), 1) << "that of the other channel";
  EXPECT_EQ(frame_.questions, (Strings{kTextDeletePosts, kTextDeletePosts, kTextDeleteAllPosts}));
  EXPECT_EQ(frame_.recounts, std::vector<bool>(5, false));
  ListAndSelect(CabinetPosts(), {0});
  Choose(kCommandMarkRead);
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  Choose(kCommandDelete);
  EXPECT_EQ(frame_.db.Value("select group_concat(scrap_post_title) from TB_SCRAP_POST"), "kept 1");
  EXPECT_EQ(frame_.db.Count("TB_POST"), 1);
  EXPECT_TRUE(frame_.recounts.size() == 7 && frame_.recounts[5] && frame_.recounts[6]);
  EXPECT_EQ(frame_.state.unreadTotal, 10);
}

TEST_F(PostCommandsTest, NothingIsDeletedWithoutConsentRowsOrAStore) {
  ListAndSelect(ChannelPosts(2), {0});
  frame_.nextAnswer = MsgBoxAnswer::Declined;
  Choose(kCommandDelete);
  frame_.nextAnswer = MsgBoxAnswer::Consented;
  frame_.state.listMode = ListMode::WebDirectory;
  Key(Qt::Key_Delete);
  frame_.state.listMode = ListMode::Selection;
  RefuseInStore("delete on TB_POST");
  Choose(kCommandDelete);
  frame_.db.Sql("drop trigger refuse");
  RefuseInStore("update on TB_POST");
  Choose(kCommandMarkRead);
  EXPECT_EQ(Rows(), ">Post 2 Post 1 ");
  list_.clearSelection();
  Key(Qt::Key_Delete);
  EXPECT_EQ(frame_.questions.size(), 2U) << "the web's posts, and no posts, are not asked about";
  EXPECT_EQ(frame_.recounts.size(), 2U) << "after each refusal, as a part may have been done";
  EXPECT_EQ(frame_.reloads, 2);
  EXPECT_EQ(frame_.shown, Strings());
}

TEST_F(PostCommandsTest, APostThatComesDuringTheQuestionStays) {
  PostList list = ChannelPosts(3);
  frame_.whileAsking = [&, more = list]() mutable { pane_.Refill(std::move(more)); };
  list.posts.erase(list.posts.begin());
  pane_.Fill(std::move(list));
  Choose(kCommandDeleteAll);
  EXPECT_EQ(Rows(), ">(Post 3) ");
  EXPECT_EQ(frame_.db.Count("TB_POST"), 1);
}

TEST_F(PostCommandsTest, ScrappingCopiesTheSelectedPostsUntilOneFails) {
  const auto stored = [&] {
    return frame_.db.Value(
        "select group_concat(scrap_post_title || scrap_post_scrapChannelID || scrap_post_link || "
        "scrap_post_pubDate || scrap_post_desc || scrap_post_readStatus) from TB_SCRAP_POST");
  };
  PostList list = ChannelPosts(3);
  list.posts[2].description = "text";
  ListAndSelect(std::move(list), {2, 0});
  frame_.actions.chooseCabinet = []() -> std::optional<int> { return std::nullopt; };
  Choose(kCommandScrap);
  EXPECT_EQ(stored(), "(null)");
  frame_.actions.chooseCabinet = [] { return 7; };
  Choose(kCommandScrap);
  EXPECT_EQ(stored(), "Post 37l32008-05-01 10:00:03text0,Post 17l12008-05-01 10:00:01text0");
  RefuseInStore("insert on TB_SCRAP_POST when new.scrap_post_title = 'Post 1'");
  Choose(kCommandScrap);
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST"), 3);
  EXPECT_EQ(frame_.questions, Strings{kTextScrapFinished}) << "not when one failed";
  EXPECT_EQ(frame_.recounts, (std::vector{true, true}));
  EXPECT_EQ(frame_.reloads, 0);
  ListAndSelect(CabinetPosts(), {0});
  Choose(kCommandScrap);
  EXPECT_EQ(frame_.reloads, 1) << "the copy may stand in the list itself";
}

TEST_F(PostCommandsTest, ALocalSearchListsTheStoresPostsAndCountsThem) {
  ChannelPosts(12);
  scope_.setCurrentIndex(static_cast<int>(SearchScope::Local));
  frame_.pane = &pane_;
  button_.click();
  EXPECT_EQ(frame_.questions, Strings{kTextSearchEmpty});
  word_.setText("post 1");
  button_.click();
  EXPECT_EQ(Rows(), ">(Post 12) Post 11 Post 10 Post 1 ");
  EXPECT_EQ(frame_.state.listMode, ListMode::Selection);
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 4건");
  pane_.Fill(NumberedPosts(3));
  EXPECT_EQ(bar_.accessibleDescription(), "");
  frame_.db.Sql("drop table TB_POST");
  button_.click();
  EXPECT_EQ(frame_.lists.size(), 1U);
}

TEST_F(PostCommandsTest, APaneThatGoesWhileTheUserIsAskedIsNotTouched) {
  std::unique_ptr<CRSS_RightTopContainer> pane;
  frame_.whileAsking = [&] { pane.reset(); };
  for (const bool searches : {true, false}) {
    pane = std::make_unique<CRSS_RightTopContainer>(frame_, nullptr);
    pane->show();
    pane->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(pane.get()));
    pane->Fill(NumberedPosts(3));
    frame_.nextAnswer = MsgBoxAnswer::Declined;
    auto* const list = pane->findChild<CVxListCtrl*>();
    list->selectAll();
    list->setFocus();
    searches ? pane->findChild<QAbstractButton*>()->click() : QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_EQ(pane, nullptr);
  }
}

}  // namespace
}  // namespace feedloom
