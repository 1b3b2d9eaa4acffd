// What the list's menu, its keys and its search box do to the store, the rows and the frame.

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <memory>

#include "skin/Keys.h"
#include "ui/list/CRSS_RightTopToolBarWnd.h"
#include "ui/list/ListPaneFixture.h"

namespace feedloom {
namespace {

class ListCommands : public PostListPane {
 protected:
  ListCommands() { frame_.nextAnswer = MsgBoxAnswer::Consented; }

  // `count` posts, of which the rows are selected.
  void ListAndSelect(PostList list, std::initializer_list<int> rows) {
    pane_.Fill(std::move(list));
    for (const int row : rows) {
      list_.selectionModel()->setCurrentIndex(
          Index(row), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
  }
  std::string StoredTitles(const char* table, const char* title) {
    return frame_.db.Value(std::string("select group_concat(") + title + ") from (select * from " +
                           table + " order by " + title + ")");
  }
};

TEST_F(ListCommands, TheMenuOpensAtTheCursorAndBelowTheCurrentRow) {
  AskForMenu({5, 5});
  EXPECT_EQ(OpenMenu(), nullptr) << "there are no rows";
  pane_.Fill(ChannelPosts(3));
  pane_.Show(1);
  AskForMenu({60, 70});
  ASSERT_NE(OpenMenu(), nullptr);
  EXPECT_EQ(OpenMenu()->pos(), list_.viewport()->mapToGlobal(QPoint(60, 70)));
  EXPECT_EQ(OpenMenu()->actions().size(), 4);
  CloseMenu();
  PressMenuKey();
  ASSERT_NE(OpenMenu(), nullptr);
  EXPECT_EQ(OpenMenu()->pos(), list_.viewport()->mapToGlobal(QPoint(0, 38)));
  EXPECT_EQ(OpenMenu()->actions().front()->text(), "읽지 않은 상태로 표시");
}

TEST_F(ListCommands, MarkingChangesTheSelectedPostsAndRecountsOnce) {
  ListAndSelect(ChannelPosts(4), {0, 2});
  Choose(kCommandMarkRead);
  EXPECT_EQ(StoredTitles("TB_POST where post_readStatus = 1", "post_title"), "Post 2,Post 4");
  EXPECT_TRUE(IsRead(0) && !IsRead(1) && IsRead(2) && !IsRead(3));
  EXPECT_EQ(frame_.recounts, std::vector{false});
  Choose(kCommandMarkUnread);
  EXPECT_EQ(UnreadStored(), 4);
  EXPECT_FALSE(IsRead(0) || IsRead(2));
  EXPECT_EQ(frame_.recounts.size(), 2u);
  EXPECT_EQ(frame_.state.unreadTotal, 10);
  EXPECT_EQ(frame_.shown, Strings());
}

TEST_F(ListCommands, SavedPostsAreMarkedAndDeletedInTheirCabinet) {
  ChannelPosts(3);
  ListAndSelect(CabinetPosts(3), {0});
  Choose(kCommandMarkRead);
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  Choose(kCommandDelete);
  EXPECT_EQ(StoredTitles("TB_SCRAP_POST", "scrap_post_title"), "kept 1,kept 2");
  EXPECT_EQ(UnreadStored(), 3);
  EXPECT_EQ(frame_.recounts, (std::vector{true, true}));
}

TEST_F(ListCommands, DeletingShowsThePostThatTakesTheFirstOnesPlace) {
  ListAndSelect(ChannelPosts(6), {1, 3});
  Key(Qt::Key_Delete);
  EXPECT_EQ(frame_.questions, Strings{kTextDeletePosts});
  EXPECT_EQ(StoredTitles("TB_POST", "post_title"), "Post 1,Post 2,Post 4,Post 6");
  EXPECT_EQ(Titles(), (Strings{"Post 6", "Post 4", "Post 2", "Post 1"}));
  EXPECT_EQ(frame_.shown, Strings{"Post 4"});
  EXPECT_EQ(SelectedTitles(), Strings{"Post 4"});
  EXPECT_EQ(frame_.recounts, std::vector{false});
  EXPECT_EQ(frame_.read.size(), 1u) << "the post that is shown now";

  pane_.Show(2);
  pane_.Show(3);
  list_.selectionModel()->select(Index(1),
                                 QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
  Key(Qt::Key_Delete);
  EXPECT_EQ(frame_.shown.back(), "Post 4") << "the last one that is left";
  QTest::keyClick(&list_, Qt::Key_A, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ(frame_.shown.back(), "(main page)");
  EXPECT_EQ(frame_.db.Count("TB_POST"), 0);
}

TEST_F(ListCommands, NothingIsDeletedWithoutConsentRowsOrAStore) {
  ListAndSelect(ChannelPosts(2), {0});
  frame_.nextAnswer = MsgBoxAnswer::Declined;
  Choose(kCommandDelete);
  Choose(kCommandDeleteAll);
  EXPECT_EQ(frame_.questions, (Strings{kTextDeletePosts, kTextDeleteAllPosts}));
  frame_.nextAnswer = MsgBoxAnswer::Consented;
  RefuseInStore("update", "TB_POST");
  RefuseInStore("delete", "TB_POST");
  Choose(kCommandMarkRead);
  Choose(kCommandDelete);
  EXPECT_FALSE(IsRead(0));
  frame_.state.listMode = ListMode::WebDirectory;
  Key(Qt::Key_Delete);
  frame_.state.listMode = ListMode::Selection;
  list_.clearSelection();
  Key(Qt::Key_Delete);
  EXPECT_EQ(frame_.questions.size(), 3u) << "the web's posts, and no posts, are not asked about";
  EXPECT_EQ(frame_.db.Count("TB_POST"), 2);
  EXPECT_EQ(list_.model()->rowCount(), 2);
  EXPECT_EQ(frame_.recounts.size(), 2u) << "after each refusal, as a part may have been done";
  EXPECT_EQ(frame_.reloads, 2);
  EXPECT_EQ(frame_.shown, Strings());
}

TEST_F(ListCommands, DeletingAllEmptiesTheListAndShowsTheMainPage) {
  frame_.db.AddChannelWithPosts(2, "Other", 2);
  ListAndSelect(ChannelPosts(5), {3});
  Choose(kCommandDeleteAll);
  EXPECT_EQ(frame_.db.Count("TB_POST"), 2) << "those of the other channel";
  EXPECT_EQ(list_.model()->rowCount(), 0);
  EXPECT_EQ(frame_.shown, Strings{"(main page)"});
  EXPECT_EQ(frame_.recounts, std::vector{false});
}

TEST_F(ListCommands, APostThatComesDuringTheQuestionStays) {
  PostList list = ChannelPosts(3);
  PostList more = list;
  list.posts.erase(list.posts.begin());
  pane_.Fill(std::move(list));
  frame_.whileAsking = [&] { pane_.Refill(std::move(more)); };
  Choose(kCommandDeleteAll);
  EXPECT_EQ(StoredTitles("TB_POST", "post_title"), "Post 3");
  EXPECT_EQ(Titles(), Strings{"Post 3"});
}

TEST_F(ListCommands, ScrappingCopiesTheSelectedPostsIntoTheCabinet) {
  frame_.actions.chooseCabinet = [] { return 7; };
  PostList list = ChannelPosts(3);
  list.posts[2].description = "text";
  ListAndSelect(std::move(list), {2, 0});
  Choose(kCommandScrap);
  EXPECT_EQ(frame_.db.Value("select group_concat(scrap_post_scrapChannelID || scrap_post_title || "
                            "scrap_post_link || scrap_post_pubDate || scrap_post_desc || "
                            "scrap_post_readStatus) from TB_SCRAP_POST"),
            "7Post 3l32008-05-01 10:00:03text0,7Post 1l12008-05-01 10:00:01text0");
  EXPECT_EQ(frame_.recounts, std::vector{true});
  EXPECT_EQ(frame_.questions, Strings{kTextScrapFinished});
  EXPECT_EQ(frame_.reloads, 0);

  ListAndSelect(CabinetPosts(1), {0});
  Choose(kCommandScrap);
  EXPECT_EQ(frame_.reloads, 1) << "the copy may stand in the list itself";
}

TEST_F(ListCommands, ScrappingStopsAtAFailureAndWithoutACabinet) {
  frame_.actions.chooseCabinet = []() -> std::optional<int> { return std::nullopt; };
  ListAndSelect(ChannelPosts(3), {0, 1, 2});
  Choose(kCommandScrap);
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST"), 0);
  RefuseInStore("insert", "TB_SCRAP_POST when new.scrap_post_title = 'Post 2'");
  frame_.actions.chooseCabinet = [] { return 7; };
  Choose(kCommandScrap);
  EXPECT_EQ(StoredTitles("TB_SCRAP_POST", "scrap_post_title"), "Post 3");
  EXPECT_EQ(frame_.recounts, std::vector{true});
  EXPECT_EQ(frame_.questions, Strings());
}

class PostSearch : public PostListPane {
 protected:
  void Search(const QString& word, SearchScope scope) {
    pane_.findChild<QComboBox*>()->setCurrentIndex(static_cast<int>(scope));
    pane_.findChild<QLineEdit*>()->setText(word);
    pane_.findChild<QAbstractButton*>()->click();
  }
};

TEST_F(PostSearch, ALocalSearchListsTheStoresPostsAndCountsThem) {
  ChannelPosts(12);
  Search("post 1", SearchScope::Local);
  ASSERT_EQ(frame_.lists.size(), 1u);
  EXPECT_EQ(frame_.lists[0].posts.size(), 4u);
  EXPECT_TRUE(frame_.lists[0].wereSearched);
  EXPECT_EQ(frame_.state.listMode, ListMode::Selection);

  const auto countShown = [&] {
    return pane_.findChild<CRSS_RightTopToolBarWnd*>()->accessibleDescription();
  };
  pane_.Fill(frame_.lists[0]);
  EXPECT_EQ(countShown(), "검색결과 : 4건");
  pane_.Fill(NumberedPosts(3));
  EXPECT_EQ(countShown(), "");
  pane_.Refill(NumberedPosts(4));
  EXPECT_EQ(countShown(), "");
}

TEST_F(PostSearch, NothingNewIsListedWithoutAWordOrAStore) {
  Search("", SearchScope::Local);
  EXPECT_EQ(frame_.questions, Strings{kTextSearchEmpty});
  frame_.db.Sql("drop table TB_POST");
  Search("x", SearchScope::Local);
  EXPECT_TRUE(frame_.lists.empty());
}

// The module may be taken down while a box or a dialog is open.
TEST_F(PostListPane, APaneThatGoesWhileTheUserIsAskedIsNotTouched) {
  const PostList posts = ChannelPosts(3);
  std::unique_ptr<CRSS_RightTopContainer> pane;
  const auto goes = [&] { pane.reset(); };
  frame_.whileAsking = goes;
  frame_.actions.chooseCabinet = [&]() -> std::optional<int> {
    goes();
    return std::nullopt;
  };
  const auto inANewPane = [&](auto act) {
    pane = std::make_unique<CRSS_RightTopContainer>(frame_, nullptr);
    pane->show();
    pane->Fill(posts);
    pane->findChild<CVxListCtrl*>()->selectAll();
    act(*pane);
    EXPECT_EQ(pane, nullptr);
  };
  const auto search = [](QWidget& shown) {
    emit shown.findChild<CRSS_RightTopToolBarWnd*>()->SearchRequested();
  };
  const auto press = [](Qt::Key key) {
    return [key](QWidget& shown) {
      shown.activateWindow();
      EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
      shown.setFocus();
      QTest::keyClick(shown.findChild<CVxListCtrl*>(), key);
    };
  };
  inANewPane(search);
  inANewPane(press(Qt::Key_Delete));
  EXPECT_EQ(frame_.db.Count("TB_POST"), 3);
}

}  // namespace
}  // namespace feedloom
