// Posts: loading, searching, marking, inserting, deleting.
#include <gtest/gtest.h>

#include <numeric>

#include "store/Cabinets.h"
#include "store/Connection.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"
#include "store/Search.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

std::vector<std::string> Titles(const std::vector<PostRow>& posts) {
  std::vector<std::string> titles;
  for (const PostRow& post : posts) titles.push_back(post.title);
  return titles;
}

using Strings = std::vector<std::string>;

class Posts : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(db_.Reports(), Strings()); }

  void Insert(int channelId, std::vector<NewPost> posts) {
    ChannelRecord record;
    record.id = channelId;
    record.posts = std::move(posts);
    Connection connection(store_);
    InsertChannelPosts(connection, record);
  }

  Strings Found(const std::string& word) {
    std::vector<PostRow> posts;
    EXPECT_TRUE(SearchPosts(store_, word, posts));
    return Titles(posts);
  }

  std::string Unread() {
    return db_.Value("select group_concat(post_id) from TB_POST where post_readStatus = 0");
  }

  TestStore db_;
  Store& store_ = db_.Get();
};

TEST_F(Posts, ANewPostIsUnreadAndDatedNow) {
  const int channel = db_.AddChannelWithPosts(1, "c", 0);
  Insert(channel, {{"Tom's &amp; &lt;b&gt;", "http://x/?a=1&amp;b='2'", "2008-05-01 10:00:00",
                    Korean("한글 <b>본문</b>"), 1}});
  ChannelWithPosts loaded;
  ASSERT_TRUE(LoadChannelWithPosts(store_, channel, loaded));
  ASSERT_EQ(loaded.posts.size(), 1u);
  const PostRow& post = loaded.posts[0];
  EXPECT_EQ(post.title, "Tom's & <b>");
  EXPECT_EQ(post.link, "http://x/?a=1&b='2'");
  EXPECT_EQ(post.description, Korean("한글 <b>본문</b>"));
  EXPECT_EQ(post.published, "2008-05-01 10:00:00");
  EXPECT_EQ(post.readStatus, 0);
  EXPECT_EQ(post.isPodcast, 1);
  EXPECT_EQ(post.ownerTitle, "c");
  EXPECT_EQ(post.ownerId, channel);
  EXPECT_EQ(post.created.size(), std::string("2008-05-01 10:00:00").size());
}

TEST_F(Posts, ALinkIsStoredOnceForItsChannel) {
  const int a = db_.AddChannelWithPosts(1, "a", 0);
  const int b = db_.AddChannelWithPosts(1, "b", 0);
  Insert(a, {{"first", "l", "", "", 0}, {"second", "l", "", "", 0}, {"no link", "", "", "", 0}});
  Insert(a, {{"third", "l", "", "", 0}, {"no link either", "", "", "", 0}});
  Insert(b, {{"other channel", "l", "", "", 0}});
  EXPECT_EQ(db_.Count("TB_POST"), 3);
  EXPECT_EQ(db_.Value("select post_title from TB_POST where post_link = 'l'"), "first");
}

TEST_F(Posts, InsertingEndsWhenItIsToldTo) {
  const int channel = db_.AddChannelWithPosts(1, "a", 0);
  std::stop_source stop;
  stop.request_stop();
  ChannelRecord record;
  record.id = channel;
  record.posts = {{"t", "l", "", "", 0}};
  Connection connection(store_);
  InsertChannelPosts(connection, record, stop.get_token());
  EXPECT_EQ(db_.Count("TB_POST"), 0);
}

TEST_F(Posts, AFolderListsItsChannelsByOrderAndTheirPostsByDate) {
  const int folder = AddFolder(store_, "f", 1);
  const int late = db_.AddChannelWithPosts(folder, "late", 2);
  const int early = db_.AddChannelWithPosts(folder, "early", 0);
  db_.Sql("update TB_CHANNEL set channel_order = 0 where channel_title = 'early'");
  Insert(early, {{"b", "1", "2008-05-01 09:00:00", "", 0},
                 {"a", "2", "2008-05-01 09:00:00", "", 0},
                 {"newest", "3", "2009-01-01 00:00:00", "", 0}});
  ChannelWithPosts loaded;
  ASSERT_TRUE(LoadFolderWithPosts(store_, folder, loaded));
  EXPECT_EQ(Titles(loaded.posts), (Strings{"newest", "a", "b", "Post 2", "Post 1"}));
  EXPECT_EQ(loaded.posts.front().ownerId, early);
  EXPECT_EQ(loaded.posts.back().ownerId, late);
  EXPECT_EQ(loaded.title, "early");
  EXPECT_EQ(loaded.folderId, folder);
}

TEST_F(Posts, CabinetsListTheirSavedPosts) {
  const int b = AddCabinet(store_, "b", 2);
  const int a = AddCabinet(store_, "a", 1);
  InsertScrapPost(store_, b, "in b", "l", "2010-01-01 00:00:00", "d");
  InsertScrapPost(store_, a, "old", "l", "2008-01-01 00:00:00", "d");
  InsertScrapPost(store_, a, "new", "l", "2009-01-01 00:00:00", "d");
  CabinetWithPosts one;
  ASSERT_TRUE(LoadCabinetWithPosts(store_, a, one));
  EXPECT_EQ(one.title, "a");
  EXPECT_EQ(one.order, 1);
  EXPECT_EQ(Titles(one.posts), (Strings{"new", "old"}));
  CabinetWithPosts all;
  ASSERT_TRUE(LoadAllCabinetsWithPosts(store_, all));
  EXPECT_EQ(Titles(all.posts), (Strings{"new", "old", "in b"}));
  EXPECT_EQ(all.posts.back().ownerId, b);
  EXPECT_EQ(all.posts.back().ownerTitle, "b");
}

TEST_F(Posts, TitlesAreSearchedInEveryScope) {
  const int folder = AddFolder(store_, "f", 1);
  const int in = db_.AddChannelWithPosts(folder, "in", 0);
  const int out = db_.AddChannelWithPosts(folder + 1, "out", 0);
  Insert(in,
         {{Korean("한글 News"), "1", "2008-05-02 00:00:00", "", 0}, {"it's 100%", "2", "", "", 0}});
  Insert(out, {{Korean("글 모음"), "3", "2008-05-03 00:00:00", "", 0}});
  EXPECT_EQ(Found(Korean("글")), (Strings{Korean("글 모음"), Korean("한글 News")}));
  EXPECT_EQ(Found("nEwS"), Strings{Korean("한글 News")});
  EXPECT_EQ(Found("it's"), Strings{"it's 100%"});
  EXPECT_EQ(Found("1__%"), Strings{"it's 100%"});
  EXPECT_EQ(Found("absent"), Strings());

  std::vector<PostRow> posts;
  ASSERT_TRUE(SearchChannelPosts(store_, out, Korean("글"), posts));
  EXPECT_EQ(Titles(posts), Strings{Korean("글 모음")});
  posts.clear();
  ASSERT_TRUE(SearchFolderPosts(store_, folder, Korean("글"), posts));
  EXPECT_EQ(Titles(posts), Strings{Korean("한글 News")});

  const int cabinet = AddCabinet(store_, "c", 1);
  InsertScrapPost(store_, cabinet, Korean("보관한 글"), "l", "", "");
  posts.clear();
  ASSERT_TRUE(SearchCabinetPosts(store_, cabinet, Korean("글"), posts));
  ASSERT_TRUE(SearchScrapPosts(store_, Korean("한_글"), posts));
  EXPECT_EQ(Titles(posts), (Strings{Korean("보관한 글"), Korean("보관한 글")}));
}

TEST_F(Posts, TodayMeansTheLocalDateOfPublication) {
  db_.Clock().Set(NoonOf(2008, 5, 2));
  const int channel = db_.AddChannelWithPosts(3, "c", 0);
  Insert(channel, {{"yesterday", "1", "2008-05-01 23:59:59", "", 0},
                   {"first", "2", "2008-05-02 00:00:00", "", 0},
                   {"last", "3", "2008-05-02 23:59:59", "", 0},
                   {"no date", "4", "", "", 0}});
  std::vector<PostRow> posts;
  ASSERT_TRUE(LoadTodayUnread(store_, posts));
  EXPECT_EQ(Titles(posts), (Strings{"last", "first"}));
  EXPECT_EQ(posts[0].ownerId, channel);
  const int read[] = {posts[0].id};
  ASSERT_TRUE(MarkPostsRead(store_, 1, read));
  posts.clear();
  ASSERT_TRUE(LoadFolderTodayUnread(store_, 3, posts));
  EXPECT_EQ(Titles(posts), Strings{"first"});
  posts.clear();
  ASSERT_TRUE(LoadFolderTodayUnread(store_, 4, posts));
  EXPECT_TRUE(posts.empty());
}

TEST_F(Posts, MarkingReachesJustTheNamedRows) {
  const int folder = AddFolder(store_, "f", 1);
  const int a = db_.AddChannelWithPosts(folder, "a", 3);  // posts 1 to 3
  db_.AddChannelWithPosts(folder + 1, "b", 2);            // posts 4 and 5
  const int posts[] = {1, 3, 5};
  EXPECT_TRUE(MarkPostsRead(store_, 1, posts));
  EXPECT_EQ(Unread(), "2,4");
  const int channels[] = {a};
  EXPECT_TRUE(MarkChannelsRead(store_, 0, channels));
  EXPECT_EQ(Unread(), "1,2,3,4");
  const int folders[] = {folder, 99};
  EXPECT_TRUE(MarkFoldersRead(store_, 1, folders));
  EXPECT_EQ(Unread(), "4");
  EXPECT_TRUE(MarkPostsRead(store_, 1, {}));
  EXPECT_EQ(Unread(), "(null)");

  const int cabinet = AddCabinet(store_, "c", 1);
  InsertScrapPost(store_, cabinet, "t", "l", "", "");
  const int cabinets[] = {cabinet};
  EXPECT_TRUE(MarkCabinetsRead(store_, 1, cabinets));
  EXPECT_EQ(db_.Count("TB_SCRAP_POST where scrap_post_readStatus = 1"), 1);
  EXPECT_TRUE(MarkAllScrapPostsRead(store_, 0));
  EXPECT_EQ(db_.Count("TB_SCRAP_POST where scrap_post_readStatus = 0"), 1);
}

TEST_F(Posts, MarkAndDeleteStatementsNameEachId) {
  StatementLog log;
  const int ids[] = {1, 2, 3};
  MarkPostsRead(store_, 1, ids);
  MarkFoldersRead(store_, 0, ids);
  DeletePosts(store_, ids);
  DeleteOldPosts(store_, 7);
  EXPECT_EQ(log.Take(),
            (Strings{"Update TB_POST Set post_readStatus = 1 Where post_id = 1 Or post_id = 2 Or "
                     "post_id = 3",
                     "Update TB_POST Set post_readStatus = 0 Where post_channelID in (Select "
                     "channel_id From TB_CHANNEL Where channel_folderID  = 1 Or channel_folderID  "
                     "= 2 Or channel_folderID  = 3)",
                     "Delete From TB_POST Where post_id = 1 Or post_id = 2 Or post_id = 3",
                     "Delete From TB_POST where ABS(JULIANDAY('now') - "
                     "JULIANDAY(post_createdate)) >= 7"}));
}

TEST_F(Posts, AListOfThousandsOfIdsIsMarkedAndDeletedWhole) {
  db_.Sql(
      "with recursive n(i) as (select 1 union all select i + 1 from n where i < 2500) insert "
      "into TB_POST(post_channelID, post_link) select 1, i from n");
  std::vector<int> ids(2500);
  std::iota(ids.begin(), ids.end(), 1);
  EXPECT_TRUE(MarkPostsRead(store_, 1, ids));
  EXPECT_EQ(db_.Count("TB_POST where post_readStatus = 0"), 0);
  EXPECT_TRUE(DeletePosts(store_, std::span(ids).first(2400)));
  EXPECT_EQ(db_.Count("TB_POST"), 100);
}

TEST_F(Posts, CleanUpGoesByTheAgeInTheStore) {
  db_.AddChannelWithPosts(1, "c", 3);
  db_.Sql(
      "update TB_POST set post_createDate = datetime('now', '-6 days', '-21 hours') where "
      "post_id = 1");
  db_.Sql("update TB_POST set post_createDate = datetime('now', '-8 days') where post_id = 2");
  db_.Sql("update TB_POST set post_createDate = NULL where post_id = 3");
  EXPECT_TRUE(DeleteOldPosts(store_, 7));
  EXPECT_EQ(Unread(), "1,3");
  EXPECT_TRUE(DeleteOldPosts(store_, 0));
  EXPECT_EQ(Unread(), "3");
}

TEST_F(Posts, OnePostIsFoundById) {
  const int channel = db_.AddChannelWithPosts(1, "c", 2);
  std::vector<PostRow> posts;
  EXPECT_TRUE(FindPost(store_, 2, posts));
  EXPECT_TRUE(FindPost(store_, 3, posts));
  ASSERT_EQ(Titles(posts), Strings{"Post 2"});
  EXPECT_EQ(posts[0].ownerId, channel);
}

TEST_F(Posts, SavedPostsAreDeletedById) {
  const int cabinet = AddCabinet(store_, "c", 1);
  const int ids[] = {InsertScrapPost(store_, cabinet, "a", "l", "", "")};
  InsertScrapPost(store_, cabinet, "b", "l", "", "");
  EXPECT_TRUE(DeleteScrapPosts(store_, ids));
  EXPECT_EQ(db_.Value("select scrap_post_title from TB_SCRAP_POST"), "b");
}

}  // namespace
}  // namespace feedloom
