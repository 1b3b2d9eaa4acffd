// The database's files: the statements that are run on them, their lock, what tells of a write, and
// the backup copy.
#include <fmt/ranges.h>

#include "store/Backup.h"
#include "store/Cabinets.h"
#include "store/Channels.h"
#include "store/Folders.h"
#include "store/Posts.h"
#include "store/ReadStatus.h"
#include "store/StoreKit.h"
#include "store/WriteMark.h"

namespace feedloom {
namespace {

using Strings = std::vector<std::string>;

struct StoreFiles : testing::Test {
  TestStore db_;
  Store& store_ = db_.Get();
};

TEST_F(StoreFiles, StatementsKeepTheirTextsAndPauseBeforeAndAfter) {
  StatementLog log;
  std::vector<FolderRow> folders;
  std::vector<ChannelRow> channels;
  std::vector<CabinetRow> cabinets;
  EXPECT_TRUE(LoadFolderList(store_, folders) && LoadChannelList(store_, channels) &&
              LoadCabinetList(store_, cabinets));
  EXPECT_TRUE(MarkPostsRead(store_, 1, std::vector{1, 2}) &&
              MarkFoldersRead(store_, 0, std::vector{1, 2}) &&
              DeletePosts(store_, std::vector{1, 2}) && DeleteOldPosts(store_, 7).has_value());
  EXPECT_EQ(
      fmt::format("{}", fmt::join(log.Take(), ";")),
      "select folder_name, folder_id, folder_order, ifnull(a_cnt,0) cnt from tb_folder left join "
      "(select count(post_id) a_cnt, channel_id a_id, channel_folderID a_fID from tb_channel "
      "left join tb_post on channel_id = post_channelID where post_readStatus = 0 group by "
      "channel_folderid) on folder_id = a_fID order by folder_order;Select channel_title, "
      "channel_xmllink, channel_id, channel_folderID, channel_order, ifnull(a_cnt,0) cnt, "
      "channel_state from TB_CHANNEL left join (select count(post_id) a_cnt, channel_id a_id "
      "from tb_channel innjer join tb_post on channel_id = post_channelID where post_readStatus "
      "= 0 group by channel_id) on channel_id = a_id order by channel_order;Select "
      "scrap_channel_id, scrap_channel_title, scrap_channel_order, ifnull(a_cnt,0) cnt from "
      "TB_SCRAP_CHANNEL left join (select count(scrap_post_id) a_cnt, scrap_channel_id a_id from "
      "tb_scrap_channel innjer join tb_scrap_post on scrap_channel_id = "
      "scrap_post_scrapChannelID where scrap_post_readStatus = 0 group by scrap_channel_id) on "
      "scrap_channel_id = a_id order by scrap_channel_order;Update TB_POST Set post_readStatus = "
      "1 Where post_id = 1 Or post_id = 2;Update TB_POST Set post_readStatus = 0 Where "
      "post_channelID in (Select channel_id From TB_CHANNEL Where channel_folderID  = 1 Or "
      "channel_folderID  = 2);Delete From TB_POST Where post_id = 1 Or post_id = 2;Delete From "
      "TB_POST where ABS(JULIANDAY('now') - JULIANDAY(post_createdate)) >= 7");
  EXPECT_EQ(db_.Clock().TimePaused(), std::chrono::milliseconds(7 * 20));
}

TEST_F(StoreFiles, WaitsForAnotherProgramAndLetsOtherThreadsGoOnMeanwhile) {
  auto lock = std::make_unique<ForeignLock>(db_.DbPath());
  db_.Clock().onPause = [&] {
    if (db_.Clock().TimePaused() < std::chrono::milliseconds(4'900)) return;
    const MutexLock otherThread(store_.Lock());
    lock.reset();
  };
  EXPECT_EQ(AddCabinet(store_, "c", 1), 1);
}

TEST_F(StoreFiles, TellsWhetherAnyProgramHasWritten) {
  const auto settled = [this] {
    const auto longAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    for (const char* const file : {"", "-wal"}) {
      if (!std::filesystem::exists(db_.DbPath() + file)) continue;
      std::filesystem::last_write_time(db_.DbPath() + file, longAgo);
    }
    return ReadWriteMark(store_);
  };
  db_.Sql("pragma journal_mode = wal");
  AddCabinet(store_, "a", 1);
  const WriteMark first = settled();
  EXPECT_TRUE(CabinetTitleExists(store_, "a"));
  EXPECT_FALSE(MayHaveChanged(first, ReadWriteMark(store_)));
  AddCabinet(store_, "b", 1);
  const WriteMark second = ReadWriteMark(store_);
  EXPECT_TRUE(MayHaveChanged(first, second));
  EXPECT_TRUE(MayHaveChanged(second, second)) << "within a tick of the file system's clock";
  const WriteMark third = settled();
  db_.Sql("insert into TB_FOLDER(folder_name) values('x')");
  EXPECT_TRUE(MayHaveChanged(third, ReadWriteMark(store_)));
}

TEST_F(StoreFiles, IsNotBackedUpSoThatTheOlderCopyStaysAndASoundOneIsWhole) {
  db_.AddChannelWithPosts(1, "c", 300);
  db_.Folder().Write("rssdb.bak", "an older copy");
  const std::string bytes = db_.Folder().Read("rssdb");
  const std::string half = bytes.substr(0, bytes.size() / 2);
  for (const auto& content : {half + std::string(half.size(), 'Z'), half.substr(0, 9), bytes}) {
    db_.Folder().Write("rssdb", content);
    const auto lock = content == bytes ? std::make_unique<ForeignLock>(db_.DbPath()) : nullptr;
    EXPECT_FALSE(BackupDatabase(store_));
    EXPECT_EQ(db_.Folder().Read("rssdb.bak"), "an older copy");
    EXPECT_EQ(db_.Folder().Names(), (Strings{"rssdb", "rssdb.bak"}));
  }
  for (const char* left : {"rssdb.bak.new", "rssdb.bak.new-wal"})
    db_.Folder().Write(left, "of a program that was killed");
  EXPECT_EQ(db_.Value("pragma journal_mode = wal"), "wal");
  EXPECT_TRUE(BackupDatabase(store_));
  EXPECT_EQ(db_.Count("TB_POST"), 300) << "and ends what is beside the original";
  EXPECT_EQ(db_.Folder().Names(), (Strings{"rssdb", "rssdb.bak"}));
  std::filesystem::rename(db_.DbPath() + ".bak", db_.DbPath());
  EXPECT_EQ(db_.Folder().Read("rssdb").substr(18, 2), "\1\1") << "not in write-ahead mode";
  EXPECT_EQ(db_.Count("TB_POST"), 300);
  EXPECT_EQ(db_.Folder().Names(), Strings{"rssdb"});
}

}  // namespace
}  // namespace feedloom
