// The operations on folders, channels, cabinets and posts, on a sound database and on others.
#include <fmt/ranges.h>

#include <numeric>

#include "store/Cabinets.h"
#include "store/ChannelAdder.h"
#include "store/Channels.h"
#include "store/Connection.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"
#include "store/Search.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

using Strings = std::vector<std::string>;
using Ids = std::vector<int>;
using Posts = std::vector<PostRow>;
using Feed = ChannelWithPosts;
using Cabinet = CabinetWithPosts;

template <typename... Fields>
std::string Line(const Fields&... fields) {
  return (fmt::format("{} ", fields) + ...);
}
std::string Text(const FolderRow& r) { return Line(r.id, r.name, r.order, r.unreadCount); }
std::string Text(const CabinetRow& r) { return Line(r.id, r.title, r.order, r.unreadCount); }
std::string Text(const ChannelContents& r) { return Line(r.id, r.state, r.holdsPosts); }
std::string Text(const ChannelRow& r) {
  return Line(r.id, r.title, r.xmlLink, r.folderId, r.order, r.unreadCount, r.state);
}
std::string Text(const PostRow& r) {
  return Line(r.id, r.readStatus, r.created, r.description, r.link, r.published, r.title, r.updated,
              r.ownerTitle, r.isPodcast, r.ownerId);
}
template <typename Row>
std::string Text(const std::vector<Row>& rows) {
  std::string text;
  for (const Row& row : rows) text += Text(row);
  return text;
}
// Of the posts, all fields of the first one and the ids of the others.
std::string Text(const Posts& posts) {
  std::string text;
  for (const PostRow& post : posts) text += text.empty() ? Text(post) : Line(post.id);
  return text;
}
std::string Text(const Feed& c) {
  return Line(c.folderId, c.created, c.htmlLink, c.title, c.type, c.updated, c.xmlLink,
              Text(c.posts));
}
std::string Text(const Cabinet& c) { return Line(c.created, c.title, c.order, Text(c.posts)); }

struct StoreTest : testing::Test {
  // Rows that no list shows in the order of their ids.
  void Fill() {
    db_.Sql(
        "insert into TB_FOLDER values(1, 'Second', 2), (2, 'First', 1); insert into TB_CHANNEL "
        "values(1, 1, 'B', 'x', 'h', 'y', 9, 0, 'c', 'u'), (2, 1, 'A', 'x', 'h', 'y', 8, -3, 'c', "
        "'u'), (3, 2, 'E', 'x', 'h', 'y', 7, 1, 'c', 'u'); insert into TB_POST values(1, 1, 't1', "
        "'', 'p1', '', 0, 0, '', ''), (2, 1, 'at2', '', 'p1', '', 0, 0, '', ''), (3, 1, 't', 'l', "
        "'p3', 'd', 1, 1, 'c', 'u'), (4, 2, 't', 'l', 'p2', 'd', 5, 0, 'c', 'u'), (5, 9, 'lost', "
        "'', '', '', 0, 0, '', ''); insert into TB_SCRAP_CHANNEL values(1, 'B', 5, 'c', 'u'), (2, "
        "'A', 4, 'c', 'u'); insert into TB_SCRAP_POST values(1, 1, 't1', '', 'p1', '', 0, '', ''), "
        "(2, 1, 'at2', '', 'p1', '', 0, '', ''), (3, 1, 't', 'l', 'p3', 'd', 1, 'c', 'u'), (4, 2, "
        "'t', 'l', 'p2', 'd', 0, 'c', 'u')");
  }

  template <typename Out, typename Load, typename... In>
  std::string Loaded(Load load, const In&... in) {
    Out out;
    return load(store_, in..., out) ? Text(out) : "none ";
  }
  std::string Folders() { return Loaded<std::vector<FolderRow>>(LoadFolderList); }
  std::string Channels() { return Loaded<std::vector<ChannelRow>>(LoadChannelList); }
  std::string Cabinets() { return Loaded<std::vector<CabinetRow>>(LoadCabinetList); }

  // The id and the order that a function finds.
  template <typename Find, typename... In>
  std::string Found(Find find, const In&... in) {
    int id = 0;
    int order = 0;
    return find(store_, in..., id, order) ? Line(id, order) : "none ";
  }

  Changes Insert(int channelId, std::vector<NewPost> posts, std::stop_token stop = {}) {
    Connection connection(store_);
    return InsertChannelPosts(connection, {{.id = channelId}, false, std::move(posts)}, stop);
  }

  // The ids of the unread posts, and of the unread saved ones, after an operation that succeeded.
  std::string UnreadAfter(bool succeeded) {
    EXPECT_TRUE(succeeded);
    return db_.Value(
        "select group_concat(post_id) || ifnull((select ' ' || group_concat(scrap_post_id) from "
        "TB_SCRAP_POST where scrap_post_readStatus = 0), '') from TB_POST where post_readStatus = "
        "0");
  }

  // The unread posts of each of these channels.
  std::string CountsOf(std::vector<int> channels) {
    const auto counts = CountUnreadInChannels(store_, channels);
    std::string text = counts ? "" : "none";
    for (const auto& [id, count] : counts.value_or(ChannelCounts()))
      text += fmt::format("{}:{} ", id, count);
    return text;
  }

  void ExpectFailures(const std::string& reason) {
    const std::size_t before = db_.Reports().size();
    int order = 0;
    ChannelRecord record;
    EXPECT_FALSE(AppendChannelRecord(store_, record) || record.id != -1 || record.folderId != 0);
    EXPECT_EQ(Folders() + Channels() + Cabinets() + Found(FindFolderByName, "f") +
                  Loaded<Feed>(LoadChannelWithPosts, 1),
              "none none none none none ");
    EXPECT_EQ(
        Line(CountUnreadPosts(store_), CountUnreadInFolder(store_, 1, true),
             CountUnreadInFolder(store_, 1, false), CountsOf({1}), GetChannelFolderId(store_, 1),
             AppendFolder(store_, "f", order), AddCabinet(store_, "", 1),
             InsertChannel(store_, "", "", "", 1, 1), GetMaxOrder(store_, true, 0),
             GetMaxOrder(store_, false, 1), FolderNameExists(store_, "f"), DeleteFolder(store_, 1)),
        "-1 -1 -1 none -1 -1 -1 -1 -2 -2 false false ");
    EXPECT_EQ(db_.Reports().at(before).find(reason), 0u);
  }

  TestStore db_;
  Store& store_ = db_.Get();
};

struct SoundStore : StoreTest {
  void TearDown() override { EXPECT_EQ(db_.Reports(), Strings()); }
};

TEST_F(SoundStore, ListsAreOrderedAndCountTheUnreadAndThoseOfTheLocalDate) {
  Fill();
  EXPECT_EQ(Folders(), "2 First 1 0 1 Second 2 3 ");
  EXPECT_EQ(Channels(), "3 E x 2 7 0 1 2 A x 1 8 1 -3 1 B x 1 9 2 0 ");
  EXPECT_EQ(Cabinets(), "2 A 4 1 1 B 5 2 ");
  EXPECT_EQ(Loaded<std::vector<ChannelContents>>(LoadChannelContents),
            "1 0 true 2 -3 true 3 1 false ");
  EXPECT_EQ(Line(CountUnreadPosts(store_), CountUnreadInFolder(store_, 1, false),
                 CountUnreadInFolder(store_, 2, false), CountUnreadInFolder(store_, 0, true),
                 CountsOf({3, 1, 99})),
            "4 3 0 3 1:2 3:0  ");
  db_.Clock().Set(NoonOf(2008, 5, 2));
  db_.Sql(
      "update TB_POST set post_pubDate = iif(post_id = 2, '2008-05-01 23:59:59', '2008-05-02 0' || "
      "post_id || ':00:00')");
  EXPECT_EQ(Loaded<Posts>(LoadTodayUnread), "4 0 c d l 2008-05-02 04:00:00 t u A 5 2 1 ");
  EXPECT_EQ(Loaded<Posts>(LoadFolderTodayUnread, 1), Loaded<Posts>(LoadTodayUnread));
  EXPECT_EQ(Loaded<Posts>(LoadFolderTodayUnread, 2), "");
}

TEST_F(SoundStore, PostsAreLoadedWithAllFieldsFromTheNewestToTheOldestThenByTitle) {
  Fill();
  EXPECT_EQ(Loaded<Feed>(LoadChannelWithPosts, 1), "1 c h B y u x 3 1 c d l p3 t u B 1 1 2 1  ");
  EXPECT_EQ(Loaded<Feed>(LoadFolderWithPosts, 1), "1 c h A y u x 4 0 c d l p2 t u A 5 2 3 2 1  ");
  EXPECT_EQ(Loaded<Cabinet>(LoadCabinetWithPosts, 1), "c B 5 3 1 c d l p3 t u B 0 1 2 1  ");
  EXPECT_EQ(Loaded<Cabinet>(LoadAllCabinetsWithPosts), "c A 0 4 0 c d l p2 t u A 0 2 3 2 1  ");
  EXPECT_EQ(Loaded<Posts>(SearchPosts, "T"), "3 1 c d l p3 t u B 1 0 4 2 1 ");
  EXPECT_EQ(Loaded<Posts>(SearchChannelPosts, 2, "T"), "4 0 c d l p2 t u A 5 0 ");
  EXPECT_EQ(Loaded<Posts>(SearchFolderPosts, 1, "T"), "3 1 c d l p3 t u B 1 0 4 2 1 ");
  EXPECT_EQ(Loaded<Posts>(SearchCabinetPosts, 2, "T"), "4 0 c d l p2 t u A 0 0 ");
  EXPECT_EQ(Loaded<Posts>(SearchScrapPosts, "T"), "3 1 c d l p3 t u B 0 0 4 2 1 ");
  EXPECT_EQ(Loaded<Posts>(FindPost, 4), "4 0 c d l p2 t u A 5 2 ");
  db_.Sql("update TB_POST set post_title = '" + Korean("한글 it''s") + "' where post_id = 4");
  EXPECT_EQ(Loaded<Posts>(SearchPosts, Korean("한_ I%t's")).substr(0, 2), "4 ");
}

TEST_F(SoundStore, AFolderOrCabinetIsAddedOnceAndAFolderNeverProtectedByChance) {
  for (const int id : {1, 0}) EXPECT_EQ(AddCabinet(store_, "Tom's", 1), id);
  for (const int id : {1, 2}) EXPECT_EQ(InsertScrapPost(store_, 1, "T", "l", "p", "d"), id);
  EXPECT_TRUE(ScrapPostLinkExists(store_, 1, "l") && !ScrapPostLinkExists(store_, 2, "l"));
  EXPECT_TRUE(RenameCabinet(store_, 1, "It's"));
  int order = GetMaxOrder(store_, true, 0);
  for (const int id : {1, 0}) EXPECT_EQ(AddFolder(store_, "Tom's &amp; mine", -2), id);
  EXPECT_EQ(Found(FindFolderByName, "Tom's & mine"), "1 -2 ");
  EXPECT_EQ(AppendFolder(store_, "x", order), -1);
  EXPECT_TRUE(RenameFolder(store_, 1, "A'b") && SetFolderOrder(store_, 1, -1));
  EXPECT_EQ(AppendFolder(store_, "first", order), 2);
  EXPECT_EQ(Folders() + Cabinets(), "1 A'b -1 0 2 first 0 0 1 It's 1 2 ");
}

TEST_F(SoundStore, AChannelIsAddedFoundRenamedMovedAndKeepsItsState) {
  EXPECT_EQ(InsertChannel(store_, Korean("똠방각하"), "u", "http://home/", 1, 2), 1);
  EXPECT_EQ(Found(FindChannelByXmlLink, "u", 1) + Found(FindChannelByXmlLink, "u", 2), "1 2 none ");
  EXPECT_TRUE(ChannelTitleExists(store_, Korean("똠방각하"), 1) &&
              !ChannelTitleExists(store_, Korean("똠방각하"), 2));
  EXPECT_EQ(Line(GetChannelFolderId(store_, 1), GetChannelFolderId(store_, 999)), "1 0 ");
  ChannelRecord record{{.folderId = 1, .title = "&lt;", .xmlLink = "&amp;"}};
  EXPECT_TRUE(AppendChannelRecord(store_, record));
  EXPECT_EQ(Text(StoredRow(record)), "2 < & 1 3 0 0 ");
  EXPECT_TRUE(RenameChannel(store_, 1, "X") && MoveChannel(store_, 1, 2) &&
              SetChannelState(store_, 1, -3));
  EXPECT_EQ(Channels(), "1 X u 2 2 0 -3 2 < & 1 3 0 0 ");
}

TEST_F(SoundStore, RecordsShareTheHighestOrderAndEachAddressIsAddedOnce) {
  Connection connection(store_);
  db_.Sql(
      "insert into TB_CHANNEL(channel_folderID, channel_order) values(2, 9), (1, -5), (1, -3), "
      "(1, -4)");
  ChannelRecord one{{.folderId = 1, .xmlLink = "0"}};
  EXPECT_TRUE(AddChannelRecord(connection, one) && AddChannelRecord(connection, one));
  std::vector<ChannelRecord> many(4, {{.title = "it's", .xmlLink = "'b'"}});
  many[0].xmlLink = "'a'/?x&amp;y";
  many[1].xmlLink = "'a'/?x&y";
  many[2].xmlLink = "0";
  ChannelAdder adder(connection, 1);
  ASSERT_TRUE(adder.Load() && adder.Add(std::span(many).first(3)) &&
              adder.Add(std::span(many).last(3)));
  std::string added = Line(one.id, one.order);
  for (const auto& r : many) added += Line(r.id, r.newlyInserted, r.order);
  EXPECT_EQ(added, "5 -3 6 true -3 6 false -1 5 false -1 7 true -3 ");
  EXPECT_EQ(db_.Value("select group_concat(channel_title || channel_xmllink || channel_folderID) "
                      "from TB_CHANNEL where channel_title <> ''"),
            "it's'a'/?x&y1,it's'b'1");
}

TEST_F(SoundStore, ANewPostIsUnreadAndDatedNowAndItsLinkStoredOnceForItsChannel) {
  db_.Sql("insert into TB_CHANNEL(channel_title) values('a'), ('b')");
  EXPECT_EQ(Insert(1, {{"Tom's &lt;b&gt;", "x?a&amp;b='2'", "p", Korean("한글"), 1}}).rows, 1);
  db_.Sql(
      "update TB_POST set post_createDate = abs(julianday() - julianday(post_createDate)) < 0.01");
  EXPECT_EQ(Loaded<Posts>(FindPost, 1), Korean("1 0 1 한글 x?a&b='2' p Tom's <b>  a 1 1 "));
  EXPECT_EQ(Insert(1, {{"2", "l"}, {"no", "l"}, {"3", ""}}).rows, 2);
  EXPECT_EQ(Insert(1, {{"no", "l"}, {"no", ""}}).rows, 0);
  EXPECT_EQ(Insert(2, {{"4", "l"}}).failed, 0);
  std::stop_source stop;
  stop.request_stop();
  EXPECT_EQ(Insert(1, {{"no", "new"}}, stop.get_token()).failed, 1);
  EXPECT_EQ(db_.Value("select group_concat(post_title) from TB_POST"), "Tom's <b>,2,3,4");
}

TEST_F(SoundStore, AChannelsPostsAreOneOperationAndThoseThatAreKnownCostOneLook) {
  db_.Sql("insert into TB_CHANNEL(channel_state) values(-2)");
  std::vector<NewPost> posts;
  for (int i = 0; i < 120; ++i) posts.push_back({.link = "&lt;" + std::to_string(i)});
  {
    Connection connection(store_);
    const Connection::Operation operation(connection);
    const ChannelRecord record{{.id = 1}, false, posts};
    EXPECT_EQ(InsertChannelPosts(connection, record).rows, 120);
    EXPECT_TRUE(SetChannelState(connection, 1, 0));
    const StatementLog log;
    Connection later(store_);
    const Connection::Operation other(later);
    EXPECT_EQ(InsertChannelPosts(later, record).rows, 0);
    EXPECT_TRUE(SetChannelState(later, 1, 0));
    EXPECT_EQ(fmt::format("{}", fmt::join(StatementLog::Take(), ";")),
              "Select post_link From TB_POST Where post_channelID = 1 and post_link is not null;"
              "Select channel_state From TB_CHANNEL Where channel_id = 1");
  }
  EXPECT_EQ(db_.Clock().TimePaused(), std::chrono::milliseconds(20));
  EXPECT_EQ(db_.Count("TB_POST, TB_CHANNEL where channel_state = 0"), 120);
}

TEST_F(SoundStore, MarkingAndDeletingReachJustTheNamedRowsAndWhatTheyHold) {
  Fill();
  EXPECT_EQ(UnreadAfter(MarkPostsRead(store_, 1, Ids{1, 4, 5})), "2 1,2,4");
  EXPECT_EQ(UnreadAfter(MarkChannelsRead(store_, 0, Ids{2, 9})), "2,4,5 1,2,4");
  EXPECT_EQ(UnreadAfter(MarkFoldersRead(store_, 1, Ids{1, 99})), "5 1,2,4");
  EXPECT_EQ(UnreadAfter(MarkPostsRead(store_, 0, {})), "1,2,3,4,5 1,2,4");
  EXPECT_EQ(UnreadAfter(MarkScrapPostsRead(store_, 1, Ids{1, 4})), "1,2,3,4,5 2");
  EXPECT_EQ(UnreadAfter(MarkCabinetsRead(store_, 0, Ids{2})), "1,2,3,4,5 2,4");
  EXPECT_EQ(UnreadAfter(MarkAllScrapPostsRead(store_, 1)), "1,2,3,4,5");
  EXPECT_EQ(UnreadAfter(MarkAllScrapPostsRead(store_, 0)), "1,2,3,4,5 1,2,3,4");
  EXPECT_EQ(UnreadAfter(DeleteChannel(store_, 2)), "1,2,3,5 1,2,3,4");
  EXPECT_EQ(UnreadAfter(DeleteFolder(store_, 1)), "5 1,2,3,4");
  EXPECT_EQ(UnreadAfter(DeleteScrapPosts(store_, Ids{2, 4})), "5 1,3");
  EXPECT_EQ(UnreadAfter(DeleteCabinet(store_, 1)), "5");
  EXPECT_EQ(Folders() + Channels() + Cabinets(), "2 First 1 0 3 E x 2 7 0 1 2 A 4 0 ");
  db_.Sql(
      "insert into TB_POST(post_id, post_channelID, post_createDate) values(6, 9, datetime('now', "
      "'-165 hours')), (7, 9, datetime('now', '-8 days'))");
  EXPECT_EQ(UnreadAfter(DeleteOldPosts(store_, 7) > 0), "5,6") << "by the date in the store";
  EXPECT_EQ(UnreadAfter(DeleteOldPosts(store_, 0) > 0), "5");
}

using FaultyStore = StoreTest;

TEST_F(FaultyStore, MakesEveryOperationFailWithTheReason) {
  auto lock = std::make_unique<ForeignLock>(db_.DbPath());
  for (const auto& [thread, seconds] :
       {std::pair(std::thread::id(), 5), {std::this_thread::get_id(), 1}}) {
    ManualClock clock;
    Store store(
        db_.DbPath(), CodePage::Korean(), clock, [](auto) {}, thread);
    EXPECT_EQ(CountUnreadPosts(store), -1);
    EXPECT_EQ(clock.TimePaused(), std::chrono::milliseconds(seconds * 1'000 + 20));
  }
  ExpectFailures("database is locked");
  lock.reset();
  db_.Folder().Write("rssdb", std::string(8192, 'x'));
  ExpectFailures("file is not a database");
  std::filesystem::remove(db_.DbPath());
  ExpectFailures("no such table: ");
  std::filesystem::remove(db_.DbPath());
  std::filesystem::create_directory(db_.DbPath());
  ExpectFailures("Can't open database");
}

TEST_F(FaultyStore, AfterAStatementThatFailsTheNextOneRunsAndTheFailureIsRemembered) {
  db_.Sql(
      "create trigger a before insert on TB_POST when new.post_title = 'bad' begin select "
      "raise(fail, 'refused'); end; create trigger b before delete on TB_POST when old.post_id = 1 "
      "begin select raise(abort, 'kept'); end; insert into TB_CHANNEL(channel_folderID) values(1); "
      "create trigger c before insert on TB_CHANNEL begin select raise(abort, 'full'); end");
  const Changes inserted = Insert(1, {{"a", "1"}, {"bad", "2"}, {"b", "3"}});
  EXPECT_EQ(Line(inserted.rows, inserted.failed), "2 1 ");
  db_.Sql("insert into TB_POST(post_id, post_channelID) values(1800, 2), (1801, 2)");
  Ids ids(1800);
  std::iota(ids.begin(), ids.end(), 1);
  EXPECT_EQ(UnreadAfter(!DeletePosts(store_, ids)), "1,2,1801");
  EXPECT_EQ(UnreadAfter(!DeleteFolder(store_, 1)), "1,2,1801");
  ChannelRecord record;
  EXPECT_FALSE(AppendChannelRecord(store_, record) || record.newlyInserted);
  EXPECT_EQ(Channels(), "");
  EXPECT_EQ(db_.Reports(), (Strings{"refused", "kept", "kept", "full"}));
}

}  // namespace
}  // namespace feedloom
