// Folders, channels and cabinets.
#include <gtest/gtest.h>

#include "store/Cabinets.h"
#include "store/ChannelAdder.h"
#include "store/Channels.h"
#include "store/Connection.h"
#include "store/Counts.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

class Containers : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(db_.Reports(), std::vector<std::string>()); }

  ChannelRecord Add(const std::string& title, const std::string& xmlLink, int folderId,
                    int order = -1) {
    ChannelRecord record;
    record.title = title;
    record.xmlLink = xmlLink;
    record.type = "rss";
    record.folderId = folderId;
    record.order = order;
    Connection connection(store_);
    EXPECT_TRUE(AddChannelRecord(connection, record));
    return record;
  }

  TestStore db_;
  Store& store_ = db_.Get();
};

TEST_F(Containers, FoldersAreListedByOrderWithTheirUnreadCounts) {
  const int second = AddFolder(store_, "Second", 2);
  const int first = AddFolder(store_, "First", 1);
  db_.AddChannelWithPosts(second, "a", 2);
  const int channel = db_.AddChannelWithPosts(second, "b", 3);
  const int read[] = {channel};
  ASSERT_TRUE(MarkChannelsRead(store_, 1, read));

  std::vector<FolderRow> rows;
  ASSERT_TRUE(LoadFolderList(store_, rows));
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].name, "First");
  EXPECT_EQ(rows[0].id, first);
  EXPECT_EQ(rows[0].unreadCount, 0);
  EXPECT_EQ(rows[1].order, 2);
  EXPECT_EQ(rows[1].unreadCount, 2);
  EXPECT_EQ(CountUnreadInFolder(store_, second, false), 2);
  EXPECT_EQ(CountUnreadInFolder(store_, first, false), 0);
  EXPECT_EQ(CountUnreadInItem(store_, channel, false), 0);
  EXPECT_EQ(CountUnreadPosts(store_), 2);
}

TEST_F(Containers, ManyRecordsAtOnceEndAsOneByOne) {
  const auto recordsOf = [](int folderId) {
    std::vector<ChannelRecord> records;
    for (const char* link : {"http://there/", "http://a/?x&amp;y", "http://b/", "http://a/?x&y"}) {
      ChannelRecord& record = records.emplace_back();
      record.folderId = folderId;
      record.title = "it's";
      record.xmlLink = link;
      record.type = "rss";
    }
    return records;
  };
  for (const int folder : {1, 2}) Add("there", "http://there/", folder, 7);
  auto single = recordsOf(1);
  auto many = recordsOf(2);
  Connection connection(store_);
  for (ChannelRecord& record : single) ASSERT_TRUE(AddChannelRecord(connection, record));
  ChannelAdder adder(connection, 2);
  ASSERT_TRUE(adder.Load());
  ASSERT_TRUE(adder.Add(many));
  for (std::size_t i = 0; i < many.size(); ++i) {
    EXPECT_EQ(many[i].newlyInserted, single[i].newlyInserted) << i;
    EXPECT_EQ(many[i].order, single[i].order) << i;
    EXPECT_EQ(many[i].id - many[0].id > 0, single[i].id - single[0].id > 0) << i;
  }
  EXPECT_EQ(many[3].id, many[1].id);
  const std::string rows =
      "select group_concat(channel_title || channel_type || channel_xmllink || channel_order) "
      "from TB_CHANNEL where channel_folderID = ";
  EXPECT_EQ(db_.Value(rows + "2"), db_.Value(rows + "1"));
  std::vector<ChannelRecord> again = recordsOf(2);
  ASSERT_TRUE(adder.Add(again));
  EXPECT_FALSE(again[1].newlyInserted);
  EXPECT_EQ(db_.Count("TB_CHANNEL"), 6);
}

TEST_F(Containers, AFolderNameIsTakenOnce) {
  const int id = AddFolder(store_, "Tom's &amp; mine", 4);
  EXPECT_GT(id, 0);
  EXPECT_EQ(AddFolder(store_, "Tom's & mine", 5), 0);
  EXPECT_EQ(db_.Count("TB_FOLDER"), 1);
  int foundId = 0;
  int order = 0;
  EXPECT_TRUE(FindFolderByName(store_, "Tom's & mine", foundId, order));
  EXPECT_EQ(foundId, id);
  EXPECT_EQ(order, 4);
  EXPECT_FALSE(FolderNameExists(store_, "tom's & mine"));
  EXPECT_TRUE(RenameFolder(store_, id, "A'b"));
  EXPECT_TRUE(SetFolderOrder(store_, id, 9));
  EXPECT_TRUE(FindFolderByName(store_, "A'b", foundId, order));
  EXPECT_EQ(order, 9);
}

TEST_F(Containers, TheHighestOrderOfNothingIsZero) {
  EXPECT_EQ(GetMaxOrder(store_, true, 0), 0);
  EXPECT_EQ(GetMaxOrder(store_, false, 1), 0);
  AddFolder(store_, "f", 7);
  Add("c", "u", 1, 3);
  EXPECT_EQ(GetMaxOrder(store_, true, 0), 7);
  EXPECT_EQ(GetMaxOrder(store_, false, 1), 3);
}

TEST_F(Containers, AChannelThatAddsItselfSharesTheLastOrder) {
  EXPECT_EQ(Add("first", "http://a/", 1).order, 0);
  Add("second", "http://b/", 1, 5);
  const ChannelRecord third = Add("third", "http://c/", 1);
  EXPECT_EQ(third.order, 5);
  EXPECT_TRUE(third.newlyInserted);
  EXPECT_EQ(db_.Value("select channel_type from TB_CHANNEL where channel_title = 'third'"), "rss");
}

TEST_F(Containers, OneAddressIsAddedOnceToAFolder) {
  const ChannelRecord one = Add("one", "http://a/?x='1'&amp;y=2", 1);
  const ChannelRecord again = Add("again", "http://a/?x='1'&y=2", 1);
  EXPECT_EQ(again.id, one.id);
  EXPECT_FALSE(again.newlyInserted);
  EXPECT_NE(Add("elsewhere", "http://a/?x='1'&y=2", 2).id, one.id);
  EXPECT_EQ(db_.Count("TB_CHANNEL"), 2);
}

TEST_F(Containers, ChannelsAreFoundRenamedMovedAndListedWithTheirState) {
  const int id = InsertChannel(store_, Korean("똠방각하"), "http://a/", "http://home/", 1, 2);
  InsertChannel(store_, "before", "http://b/", "", 2, 1);
  int found = 0;
  int order = 0;
  EXPECT_TRUE(FindChannelByXmlLink(store_, "http://a/", 1, found, order));
  EXPECT_EQ(found, id);
  EXPECT_FALSE(FindChannelByXmlLink(store_, "HTTP://a/", 1, found, order));
  EXPECT_TRUE(ChannelTitleExists(store_, Korean("똠방각하"), 1));
  EXPECT_EQ(GetChannelFolderId(store_, id), 1);
  EXPECT_EQ(GetChannelFolderId(store_, 999), 0);
  EXPECT_TRUE(RenameChannel(store_, id, "Re'named"));
  EXPECT_TRUE(MoveChannel(store_, id, 2));
  EXPECT_TRUE(SetChannelState(store_, id, -3));

  std::vector<ChannelRow> rows;
  ASSERT_TRUE(LoadChannelList(store_, rows));
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].title, "before");
  EXPECT_EQ(rows[1].title, "Re'named");
  EXPECT_EQ(rows[1].folderId, 2);
  EXPECT_EQ(rows[1].state, -3);
  EXPECT_EQ(rows[1].xmlLink, "http://a/");
}

TEST_F(Containers, DeletingAFolderTakesItsChannelsAndPostsButNoSavedPost) {
  const int doomed = AddFolder(store_, "doomed", 1);
  const int kept = AddFolder(store_, "kept", 2);
  db_.AddChannelWithPosts(doomed, "a", 3);
  const int other = db_.AddChannelWithPosts(kept, "b", 2);
  const int cabinet = AddCabinet(store_, "c", 1);
  InsertScrapPost(store_, cabinet, "Post 1", "l1", "", "");
  EXPECT_TRUE(DeleteFolder(store_, doomed));
  EXPECT_EQ(db_.Count("TB_FOLDER"), 1);
  EXPECT_EQ(db_.Count("TB_CHANNEL"), 1);
  EXPECT_EQ(db_.Count("TB_POST"), 2);
  EXPECT_EQ(db_.Count("TB_SCRAP_POST"), 1);
  EXPECT_TRUE(DeleteChannel(store_, other));
  EXPECT_EQ(db_.Count("TB_POST"), 0);
}

TEST_F(Containers, OfSeveralMatchesAFinderGivesTheLast) {
  db_.Sql("insert into TB_FOLDER(folder_name, folder_order) values('f', 1), ('f', 2)");
  db_.Sql(
      "insert into TB_CHANNEL(channel_xmllink, channel_folderID, channel_order) values('u', 1, "
      "3), ('u', 1, 4)");
  int id = 0;
  int order = 0;
  EXPECT_TRUE(FindFolderByName(store_, "f", id, order));
  EXPECT_EQ(order, 2);
  EXPECT_TRUE(FindChannelByXmlLink(store_, "u", 1, id, order));
  EXPECT_EQ(order, 4);
}

TEST_F(Containers, CabinetsHoldCopiesAndCountTheUnread) {
  const int cabinet = AddCabinet(store_, "Tom's", 1);
  EXPECT_EQ(AddCabinet(store_, "Tom's", 2), 0);
  const int empty = AddCabinet(store_, "empty", 0);
  const int saved = InsertScrapPost(store_, cabinet, "T", "http://l/", "2008-05-01 10:00:00", "d");
  InsertScrapPost(store_, cabinet, "T", "http://l/", "2008-05-01 10:00:00", "d");
  EXPECT_TRUE(ScrapPostLinkExists(store_, cabinet, "http://l/"));
  EXPECT_FALSE(ScrapPostLinkExists(store_, empty, "http://l/"));
  const int read[] = {saved};
  ASSERT_TRUE(MarkScrapPostsRead(store_, 1, read));

  std::vector<CabinetRow> rows;
  ASSERT_TRUE(LoadCabinetList(store_, rows));
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].title, "empty");
  EXPECT_EQ(rows[1].unreadCount, 1);
  EXPECT_EQ(CountUnreadInItem(store_, cabinet, true), 1);
  EXPECT_EQ(CountUnreadInFolder(store_, 0, true), 1);
  EXPECT_TRUE(RenameCabinet(store_, cabinet, "It's"));
  EXPECT_TRUE(CabinetTitleExists(store_, "It's"));
  EXPECT_TRUE(DeleteCabinet(store_, cabinet));
  EXPECT_EQ(db_.Count("TB_SCRAP_POST"), 0);
}

TEST_F(Containers, ListsRunTheStatementsThatExistingDatabasesWereTunedFor) {
  StatementLog log;
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  std::vector<CabinetRow> cabinets;
  LoadFolderList(store_, folders);
  LoadChannelList(store_, channels);
  LoadCabinetList(store_, cabinets);
  EXPECT_EQ(
      log.Take(),
      (std::vector<std::string>{
          "select folder_name, folder_id, folder_order, ifnull(a_cnt,0) cnt from tb_folder left "
          "join (select count(post_id) a_cnt, channel_id a_id, channel_folderID a_fID from "
          "tb_channel left join tb_post on channel_id = post_channelID where post_readStatus = 0 "
          "group by channel_folderid) on folder_id = a_fID order by folder_order",
          "Select channel_title, channel_xmllink, channel_id, channel_folderID, channel_order, "
          "ifnull(a_cnt,0) cnt, channel_state from TB_CHANNEL left join (select count(post_id) "
          "a_cnt, channel_id a_id from tb_channel innjer join tb_post on channel_id = "
          "post_channelID where post_readStatus = 0 group by channel_id) on channel_id = a_id "
          "order by channel_order",
          "Select scrap_channel_id, scrap_channel_title, scrap_channel_order, ifnull(a_cnt,0) cnt "
          "from TB_SCRAP_CHANNEL left join (select count(scrap_post_id) a_cnt, scrap_channel_id "
          "a_id from tb_scrap_channel innjer join tb_scrap_post on scrap_channel_id = "
          "scrap_post_scrapChannelID where scrap_post_readStatus = 0 group by scrap_channel_id) on "
          "scrap_channel_id = a_id order by scrap_channel_order"}));
}

}  // namespace
}  // namespace feedloom
