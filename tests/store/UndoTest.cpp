// What undo keeps of a deletion or a marking, and what it makes of a store that has moved on.
#include <fmt/core.h>

#include <numeric>

#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/PostLists.h"
#include "store/Posts.h"
#include "store/StoreKit.h"
#include "store/Undo.h"

namespace feedloom {
namespace {

// Folder 1 has the channels 1 and 2 with five posts each, folder 2 the channel 3, cabinet 1 two
// saved posts. The post with the link "old" was deleted from channel 1 long ago.
struct Undo : testing::Test {
  Undo() {
    db_.AddTables({"gone_links.sql", "undo.sql"});
    db_.Sql(
        "insert into TB_FOLDER values(1, 'F', 1), (2, 'G', 2);"
        "insert into TB_SCRAP_CHANNEL(scrap_channel_title) values('K');"
        "insert into TB_SCRAP_POST(scrap_post_scrapChannelID, scrap_post_link) values(1, 'l1'), "
        "(1, 'l1')");
    for (const char* const title : {"A", "B", "C"})
      db_.AddChannelWithPosts(*title == 'C' ? 2 : 1, title, 5);
    db_.Sql("insert into TB_POST(post_channelID, post_link) values(1, 'old')");
    db_.Sql("delete from TB_POST where post_link = 'old'");
    db_.Sql("update TB_POST set post_readStatus = post_id % 2");
  }
  // All rows but the counts of deleted posts, which only rise.
  std::string Rows() const {
    std::string all;
    for (const char* const rows :
         {"folder_id, folder_name, folder_order) c from TB_FOLDER",
          "channel_id, channel_folderID, channel_xmllink, channel_order) c from TB_CHANNEL",
          "post_id, post_channelID, post_link, post_readStatus, post_desc) c from TB_POST",
          "scrap_channel_id, scrap_channel_title) c from TB_SCRAP_CHANNEL",
          "scrap_post_id, scrap_post_scrapChannelID, scrap_post_readStatus) c from TB_SCRAP_POST",
          "gone_channelID, gone_link) c from TB_GONE_LINK"})
      all += db_.Value(
          fmt::format("select group_concat(c) from (select json_array({} order by c)", rows));
    return all;
  }
  bool IsBack(const std::optional<KeptStep>& step, int rowId = 0) {
    const Undone undone = UndoStep(store_, step.value_or(KeptStep()).id);
    EXPECT_EQ(undone.rowId, rowId);
    return undone.result == Undone::Result::kDone;
  }

  TestStore db_;
  Store& store_ = db_.Get();
};

constexpr RowKey kFolder{RowKind::Folder, 1};
constexpr RowKey kChannel{RowKind::Channel, 1};
constexpr RowKey kCabinet{RowKind::Cabinet, 1};
constexpr RowKey kCabinets{RowKind::CabinetRoot, 0};

TEST_F(Undo, BringsEachStepBackAsIfItHadNeverBeen) {
  const std::string before = Rows();
  const std::vector<int> ids{2, 3, 7}, saved{2};
  const auto check = [&](const std::optional<KeptStep>& step, int rows, bool isDone, int rowId) {
    EXPECT_TRUE(isDone && step && Rows() != before);
    EXPECT_EQ(step->rows, rows);
    EXPECT_TRUE(IsBack(step, rowId));
    EXPECT_EQ(Rows(), before);
    EXPECT_EQ(UndoStep(store_, step->id).result, Undone::Result::kNotKept) << "twice";
    EXPECT_EQ(db_.Count("TB_UNDO_POST") + db_.Count("TB_UNDO_MARK"), 0);
  };
  // The arguments of a call are made in any order, so a step is kept before its operation.
  auto step = KeepMarks(store_, {.posts = ids}, 1);
  check(step, 1, MarkRead(store_, {.posts = ids}, 1), 0);
  step = KeepMarks(store_, {.saved = saved}, 1);
  check(step, 1, MarkRead(store_, {.saved = saved}, 1), 0);
  const std::tuple<RowKey, int, int> all[] = {
      {kFolder, 1, 5}, {kChannel, 0, 3}, {kCabinet, 1, 2}, {kCabinets, 1, 2}};
  for (const auto& [row, status, rows] : all) {
    step = KeepMarks(store_, row, status);
    check(step, rows, MarkRead(store_, row, status), 0);
  }
  step = KeepPosts(store_, {.posts = ids});
  check(step, 3, DeletePosts(store_, ids), 0);
  step = KeepPosts(store_, {.saved = saved});
  check(step, 1, DeleteScrapPosts(store_, saved), 0);
  const PostIds both{.posts = ids, .saved = saved};
  step = KeepMarks(store_, both, 1);
  check(step, 2, MarkRead(store_, both, 1), 0);
  step = KeepPosts(store_, both);
  check(step, 4, DeletePosts(store_, both), 0);
  step = KeepRow(store_, kChannel);
  check(step, 1, DeleteChannel(store_, 1), 1);
  step = KeepRow(store_, kFolder);
  check(step, 1, DeleteFolder(store_, 1), 1);
  step = KeepRow(store_, kCabinet);
  check(step, 1, DeleteCabinet(store_, 1), 1);
  EXPECT_FALSE(KeepMarks(store_, {.posts = {3}}, 1)) << "which is read already";
  EXPECT_EQ(db_.Reports(), std::vector<std::string>());
}

TEST_F(Undo, GivesNewNumbersToRowsWhoseOwnAreTaken) {
  auto step = KeepRow(store_, {RowKind::Folder, 2});
  DeleteFolder(store_, 2);
  db_.Sql("insert into TB_FOLDER values(2, 'H', 3)");
  EXPECT_EQ(db_.AddChannelWithPosts(2, "D", 5), 3);
  EXPECT_TRUE(IsBack(step, 3));
  EXPECT_EQ(db_.Count("TB_POST where post_channelID = 3"), 5);
  EXPECT_EQ(db_.Count("TB_POST join TB_CHANNEL on channel_id = post_channelID join TB_FOLDER on "
                      "folder_id = channel_folderID where folder_name = 'G' and channel_title = "
                      "'C' and post_readStatus = (post_title in ('Post 1', 'Post 3', 'Post 5'))"),
            5);
  step = KeepRow(store_, kCabinet);
  DeleteCabinet(store_, 1);
  db_.Sql("insert into TB_SCRAP_CHANNEL(scrap_channel_title) values('L')");
  db_.Sql("insert into TB_SCRAP_POST(scrap_post_scrapChannelID) values(1), (1)");
  EXPECT_TRUE(IsBack(step, 2));
  EXPECT_EQ(db_.Count("TB_SCRAP_POST where scrap_post_scrapChannelID = 2"), 2);
}

TEST_F(Undo, JoinsWhatHasComeAnewInsteadOfDoublingIt) {
  auto step = KeepRow(store_, kFolder);
  DeleteFolder(store_, 1);
  db_.Sql("insert into TB_FOLDER(folder_name) values('F')");
  EXPECT_EQ(db_.AddChannelWithPosts(3, "B", 7), 4);
  EXPECT_TRUE(IsBack(step, 3));
  EXPECT_EQ(db_.Value("select group_concat(channel_title || channel_id) from TB_CHANNEL where "
                      "channel_folderID = 3"),
            "A1,B4");
  EXPECT_EQ(db_.Count("TB_POST where post_channelID = 4 and post_readStatus = 0"), 5)
      << "two were read";
  EXPECT_EQ(db_.Count("TB_POST where post_channelID = 4"), 7);
  EXPECT_EQ(db_.Count("TB_GONE_LINK where gone_channelID = 1 and gone_link = 'old'"), 1);

  step = KeepRow(store_, {RowKind::Channel, 3});
  DeleteChannel(store_, 3);
  DeleteFolder(store_, 2);
  EXPECT_TRUE(IsBack(step, 3));
  EXPECT_EQ(GetChannelFolderId(store_, 3), 3) << "the only folder";

  const std::vector<int> marked{12}, deleted{11, 13};
  step = KeepPosts(store_, {.posts = deleted});
  DeletePosts(store_, std::span(deleted).first(1));  // and then the disk was full
  db_.Sql(
      "delete from TB_GONE_LINK; insert into TB_POST(post_channelID, post_link) values(3, 'l1')");
  EXPECT_TRUE(IsBack(step));
  EXPECT_EQ(db_.Count("TB_POST where post_channelID = 3"), 5);
  step = KeepMarks(store_, {.posts = marked}, 1);
  MarkRead(store_, {.posts = marked}, 1);
  db_.Sql("update TB_POST set post_link = 'another' where post_id = 12");
  EXPECT_TRUE(IsBack(step));
  EXPECT_EQ(db_.Count("TB_POST where post_id = 12 and post_readStatus = 1"), 1);
}

TEST_F(Undo, LeavesPostsOutWhoseChannelHasGoneAlsoWhenAnotherHasItsNumber) {
  const std::vector<int> ids{1, 11};
  const auto step = KeepPosts(store_, {.posts = ids});
  DeletePosts(store_, ids);
  DeleteChannel(store_, 3);
  db_.Sql(
      "insert into TB_CHANNEL(channel_id, channel_createDate) values(3, '2001-01-01 00:00:00')");
  EXPECT_TRUE(IsBack(step));
  EXPECT_EQ(db_.Count("TB_POST") + db_.Count("TB_POST where post_channelID = 3"), 10);
}

TEST_F(Undo, OfManyPostsBringsTheLinksBackThatTheyHadPushedOut) {
  db_.AddChannelWithPosts(1, "many", 9'000);
  db_.Sql("delete from TB_POST where post_channelID = 4 and post_title < 'Post 4'");
  const std::string before = Rows();
  std::vector<int> ids(5'000);
  std::iota(ids.begin(), ids.end(), 4'016);
  const auto step = KeepPosts(store_, {.posts = ids});
  DeletePosts(store_, ids);
  EXPECT_TRUE(IsBack(step));
  EXPECT_EQ(Rows(), before);
}

TEST_F(Undo, IsAllOrNothingAndMayBeTriedAgain) {
  const std::string before = Rows();
  const auto step = KeepRow(store_, kFolder);
  DeleteFolder(store_, 1);
  const std::string without = Rows();
  db_.Sql(
      "create trigger T before insert on TB_POST when new.post_id = 9 begin select raise(fail, "
      "'full'); end");
  EXPECT_EQ(UndoStep(store_, step->id).result, Undone::Result::kFailed);
  EXPECT_EQ(db_.Reports(), std::vector<std::string>{"full"});
  EXPECT_EQ(Rows(), without);
  db_.Sql("drop trigger T");
  EXPECT_TRUE(IsBack(step, 1));
  EXPECT_EQ(Rows(), before);
}

TEST_F(Undo, KeepsTheLatestStepAndNoneWithoutItsTables) {
  const auto first = KeepPosts(store_, {.posts = {1}});
  EXPECT_TRUE(KeepPosts(store_, {.posts = {2}}));
  EXPECT_EQ(UndoStep(store_, first->id).result, Undone::Result::kNotKept);
  TestStore older;
  EXPECT_FALSE(KeepPosts(older.Get(), {.posts = {1}}));
  ForgetUndoStep(older.Get());
  EXPECT_EQ(older.Reports(), std::vector<std::string>());
}

}  // namespace
}  // namespace feedloom
