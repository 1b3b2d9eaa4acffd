// The search in titles and texts, from the box to the rows, in a host that asks for it.
#include "ui/list/ListPaneFixture.h"

namespace feedloom {

struct TextScope : PostListPane {
  TextScope() : PostListPane({kValueSearch, kSearchText}) {
    frame_.db.AddTables({"post_details.sql", "text_index.sql"});
    frame_.db.AddChannelWithPosts(1, "News", 4);
    frame_.db.Sql("update TB_POST set post_desc = 'with a <b>needle</b>' where post_id in (1, 3)");
    frame_.db.Sql("insert into TB_SCRAP_CHANNEL values(5, 'Kept', 0, '', '')");
    frame_.db.Sql(
        "insert into TB_SCRAP_POST(scrap_post_id, scrap_post_scrapChannelID, scrap_post_title) "
        "values(3, 5, 'Needle')");
  }
  void Search(const QString& query) {
    word_.setText(query);
    bar_.FocusWord();
    Key(Qt::Key_Return);
  }
  bool Finds(std::size_t lists) {
    return QTest::qWaitFor([&] { return frame_.lists.size() == lists; });
  }
  std::string Unread() {
    return frame_.db.Value("select count(*) from TB_POST where post_readStatus = 0") + "+" +
           frame_.db.Value("select count(*) from TB_SCRAP_POST where scrap_post_readStatus = 0");
  }
};

TEST_F(TextScope, PostsAndSavedPostsAreFoundMarkedAndDeletedTogether) {
  Search("needle");
  ASSERT_TRUE(Finds(1));
  EXPECT_EQ(Rows(), ">-Needle Post 3 Post 1 ");
  EXPECT_EQ(bar_.accessibleDescription(), "검색결과 : 3건");
  EXPECT_EQ(Unread(), "4+0");
  list_.setFocus();
  list_.selectAll();
  pane_.Run(kCommandMarkRead);
  EXPECT_EQ(Unread(), "2+0");
  frame_.db.Sql("update TB_POST set post_title = 'Other' where post_id = 1");
  pane_.Reread({});
  EXPECT_EQ(Rows(), ">-Needle >-Post 3 >-Other ") << "as the search has found them";
  pane_.Run(kCommandDelete);
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(frame_.db.Count("TB_POST") + frame_.db.Count("TB_SCRAP_POST"), 2);
}

TEST_F(TextScope, AFaultyQueryIsSaidAndChangesNothing) {
  pane_.Fill(NumberedPosts(2));
  for (const char* query : {"\"\"", "-needle", "needle since:May"}) Search(query);
  Search(QString("a ").repeated(500));
  EXPECT_EQ(frame_.questions,
            (Strings{kTextQueryNothing, kTextQueryNothing, kTextQueryDate, kTextQueryTooLong}));
  EXPECT_EQ(Rows(), "Post 2 Post 1 ");
}

TEST_F(TextScope, ASearchEndsByEscapeByAnotherListAndByTheNextSearch) {
  Search("needle");
  Key(Qt::Key_Escape);
  Search("needle");
  frame_.ListPosts(ListMode::Selection, NumberedPosts(1), FirstPost::First);
  Search("post");
  Search("nowhere");
  ASSERT_TRUE(Finds(2));
  EXPECT_EQ(Rows(), "");
  EXPECT_EQ(bar_.accessibleDescription(), "검색 결과가 없습니다.");
}

TEST_F(PostListPane, WithoutTheHostsWishThereIsNoSuchScope) {
  EXPECT_EQ(bar_.findChild<QComboBox*>()->count(), 2);
  bar_.SetScope(static_cast<int>(SearchScope::Text));
  EXPECT_EQ(bar_.Scope(), SearchScope::Web);
}

}  // namespace feedloom
