// Authors and categories of posts: kept with them, gone with them, back with them.
#include "kit/Rows.h"
#include "store/PostDetails.h"
#include "store/Posts.h"
#include "store/StoreKit.h"
#include "store/Undo.h"

namespace feedloom {
namespace {

struct Details : testing::Test {
  Details() { db_.AddChannelWithPosts(1, "channel", 1); }
  // Stores these posts in channel 1.
  Changes Insert(std::vector<NewPost> posts) {
    ChannelRecord record{{.id = 1}, false, std::move(posts)};
    Connection connection(db_.Get());
    return InsertChannelPosts(connection, record);
  }
  std::string Of(int id, const std::string& link) {
    const PostDetails details = FindPostDetails(db_.Get(), id, link);
    return details.authors + "|" + details.categories;
  }

  TestStore db_;
  const NewPost post_{.link = "a", .details = {"O'Hara\nB", "c\ne"}};
};

TEST_F(Details, AreKeptWithNewPostsAndGoWithThem) {
  db_.AddTables({"gone_links.sql", "undo.sql", "post_details.sql"});
  EXPECT_EQ(Insert({post_, {.link = "b"}, post_}).inserted, (std::vector{2, 3}));
  EXPECT_EQ(Of(2, "a"), "O'Hara\nB|c\ne");
  EXPECT_EQ(Of(2, "b"), "|") << "a saved post with that number";
  EXPECT_EQ(Of(3, "b"), "|");
  EXPECT_EQ(db_.Count("TB_POST_DETAIL"), 1);
  EXPECT_TRUE(DeletePosts(db_.Get(), std::vector{2}));
  EXPECT_EQ(db_.Count("TB_POST_DETAIL"), 0);
  EXPECT_EQ(Insert({post_}).rows, 0) << "it was deleted";
  EXPECT_EQ(db_.Count("TB_POST_DETAIL"), 0);
}

TEST_F(Details, AreDroppedWithoutTheirTable) {
  EXPECT_EQ(Insert({post_}).rows, 1);
  EXPECT_EQ(Of(2, "a"), "|");
  EXPECT_TRUE(db_.Reports().empty());
}

TEST_F(Details, ComeBackWithTheirPostsAlsoUnderANewNumber) {
  db_.AddTables({"gone_links.sql", "undo.sql", "post_details.sql"});
  Insert({post_, {.link = "b", .details = {"B"}}, {.link = "c", .details = {"C"}}});
  const auto step = KeepPosts(db_.Get(), {.posts = {2, 3}});
  DeletePosts(db_.Get(), std::vector{2, 3});
  db_.Sql("insert into TB_POST(post_id, post_channelID, post_link) values(3, 1, 'other')");
  db_.Sql("insert into TB_POST_DETAIL values(3, 'N', '')");
  EXPECT_EQ(UndoStep(db_.Get(), step->id).result, Undone::Result::kDone);
  const int id = db_.Count("TB_POST where post_link = 'b' and post_id > 4") == 1
                     ? std::stoi(db_.Value("select post_id from TB_POST where post_link = 'b'"))
                     : 0;
  EXPECT_EQ(Of(2, "a") + Of(id, "b") + Of(3, "other") + Of(4, "c"), "O'Hara\nB|c\neB|N|C|");
  EXPECT_EQ(db_.Count("TB_UNDO_POST_DETAIL"), 0);
  EXPECT_TRUE(db_.Reports().empty());
}

TEST_F(Details, NeedNoUndoThatKnowsThem) {
  db_.AddTables({"gone_links.sql", "undo.sql", "post_details.sql"});
  db_.Sql("drop table TB_UNDO_POST_DETAIL");
  Insert({post_});
  const auto step = KeepPosts(db_.Get(), {.posts = {2}});
  DeletePosts(db_.Get(), std::vector{2});
  EXPECT_EQ(UndoStep(db_.Get(), step->id).result, Undone::Result::kDone);
  EXPECT_EQ(db_.Count("TB_POST"), 2);
}

TEST_F(Details, OfALinkAsItIsWrittenKeepItFromComingTwice) {
  EXPECT_EQ(Insert({{.link = "http://s/l1", .writtenLink = "l1"}}).rows, 0);
  EXPECT_EQ(Insert({{.link = "http://s/n", .writtenLink = "n"}}).rows, 1);
}

}  // namespace
}  // namespace feedloom
