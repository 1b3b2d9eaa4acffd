// A database that is not as it should be: the report, the failure value, and nothing lost.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <thread>
#include <tuple>

#include "store/Cabinets.h"
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

// Runs one operation of each kind and checks its failure value.
void ExpectEveryOperationFails(Store& store) {
  std::vector<FolderRow> folders;
  std::vector<PostRow> posts;
  ChannelWithPosts channel;
  int id = 7;
  int order = 7;
  const int ids[] = {1};
  EXPECT_FALSE(LoadFolderList(store, folders));
  EXPECT_FALSE(SearchPosts(store, "x", posts));
  EXPECT_FALSE(LoadChannelWithPosts(store, 1, channel));
  EXPECT_EQ(CountUnreadPosts(store), -1);
  EXPECT_EQ(CountUnreadInFolder(store, 1, true), -1);
  EXPECT_EQ(GetMaxOrder(store, true, 0), -2);
  EXPECT_EQ(InsertChannel(store, "t", "x", "h", 1, 1), -1);
  EXPECT_EQ(InsertScrapPost(store, 1, "t", "l", "", ""), -1);
  EXPECT_EQ(GetChannelFolderId(store, 1), -1);
  EXPECT_FALSE(FindFolderByName(store, "f", id, order));
  EXPECT_FALSE(FolderNameExists(store, "f"));
  EXPECT_FALSE(SetChannelState(store, 1, 0));
  EXPECT_FALSE(DeletePosts(store, ids));
  EXPECT_FALSE(DeleteFolder(store, 1));
  EXPECT_EQ(id, 7);
}

TEST(StoreFaults, AMissingFileReadsAsEmptyWithSqlitesReport) {
  TestStore db;
  std::filesystem::remove(db.DbPath());
  std::vector<FolderRow> folders;
  EXPECT_FALSE(LoadFolderList(db.Get(), folders));
  EXPECT_TRUE(folders.empty());
  EXPECT_EQ(db.Reports(), Strings{"no such table: tb_folder"});
  ExpectEveryOperationFails(db.Get());
}

TEST(StoreFaults, AFileThatCannotBeOpenedIsReportedOnceAndForOneCountTwice) {
  TestStore db;
  std::filesystem::remove(db.DbPath());
  std::filesystem::create_directory(db.DbPath());
  EXPECT_EQ(CountUnreadPosts(db.Get()), -1);
  EXPECT_EQ(db.Reports(), Strings{"Can't open database"});
  EXPECT_EQ(CountUnreadInItem(db.Get(), 1, false), -1);
  EXPECT_EQ(db.Reports().size(), 3u);
  ExpectEveryOperationFails(db.Get());
}

TEST(StoreFaults, ACorruptFileIsReportedAndLeftAsItIs) {
  TestStore db;
  const std::string garbage(8192, 'x');
  db.Folder().Write("rssdb", garbage);
  ExpectEveryOperationFails(db.Get());
  EXPECT_EQ(db.Reports().front(), "file is not a database");
  EXPECT_EQ(db.Folder().Read("rssdb"), garbage);
}

TEST(StoreFaults, AMissingColumnIsReportedByName) {
  TestStore db;
  db.AddChannelWithPosts(1, "c", 1);
  db.Sql("alter table TB_POST drop column post_updateDate");
  ChannelWithPosts channel;
  EXPECT_FALSE(LoadChannelWithPosts(db.Get(), 1, channel));
  EXPECT_EQ(channel.title, "c");
  EXPECT_EQ(db.Reports(), Strings{"no such column: post_updateDate"});
}

TEST(StoreFaults, AFileLockedByAnotherProcessFailsAtOnceAndWorksAgainAfterwards) {
  TestStore db;
  const int channel = db.AddChannelWithPosts(1, "c", 2);
  {
    const ForeignLock lock(db.DbPath());
    ExpectEveryOperationFails(db.Get());
    EXPECT_EQ(db.Reports().front(), "database is locked");
  }
  EXPECT_EQ(CountUnreadInItem(db.Get(), channel, false), 2);
}

// Makes a file and its folder read-only, for root too, who would otherwise write regardless.
class ReadOnly {
 public:
  explicit ReadOnly(const TestStore& db) : folder_(db.Folder().Path()) {
    std::filesystem::permissions(db.DbPath(), std::filesystem::perms(0444));
    std::filesystem::permissions(folder_, std::filesystem::perms(0555));
    if (geteuid() == 0) asNobody_ = seteuid(kNobody) == 0;
  }
  ~ReadOnly() {
    if (asNobody_) std::ignore = seteuid(0);
    std::filesystem::permissions(folder_, std::filesystem::perms(0755));
  }
  ReadOnly(const ReadOnly&) = delete;
  ReadOnly& operator=(const ReadOnly&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  const std::string folder_;
  bool asNobody_ = false;
};

TEST(StoreFaults, AReadOnlyFileCanStillBeRead) {
  TestStore db;
  const int channel = db.AddChannelWithPosts(1, "c", 2);
  const ReadOnly readOnly(db);
  EXPECT_FALSE(DeleteChannel(db.Get(), channel));
  EXPECT_EQ(CountUnreadPosts(db.Get()), 2);
  EXPECT_EQ(db.Reports().front(), "attempt to write a readonly database");
}

TEST(StoreFaults, AFullDiskFailsTheInsertThatMetItAndKeepsWhatWasStored) {
  TestStore db;
  const int channel = db.AddChannelWithPosts(1, "c", 3);
  const rlimit unlimited = [] {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    return limit;
  }();
  const auto previous = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{std::filesystem::file_size(db.DbPath()), unlimited.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  ChannelRecord record;
  record.id = channel;
  record.posts = {{"big", "new", "", std::string(200'000, 'x'), 0}};
  {
    Connection connection(db.Get());
    InsertChannelPosts(connection, record);
  }
  setrlimit(RLIMIT_FSIZE, &unlimited);
  std::signal(SIGXFSZ, previous);
  EXPECT_EQ(db.Reports().size(), 1u);
  EXPECT_EQ(db.Value("pragma integrity_check"), "ok");
  EXPECT_EQ(db.Count("TB_POST"), 3);
}

TEST(StoreFaults, OneFailingPostDoesNotStopTheOthers) {
  TestStore db;
  const int channel = db.AddChannelWithPosts(1, "c", 0);
  db.Sql(
      "create trigger refuse before insert on TB_POST when new.post_title = 'bad' begin select "
      "raise(fail, 'refused'); end");
  ChannelRecord record;
  record.id = channel;
  record.posts = {{"a", "1", "", "", 0}, {"bad", "2", "", "", 0}, {"b", "3", "", "", 0}};
  Connection connection(db.Get());
  InsertChannelPosts(connection, record);
  EXPECT_EQ(db.Reports(), Strings{"refused"});
  EXPECT_EQ(db.Count("TB_POST"), 2);
}

TEST(StoreFaults, AfterADeleteThatFailsTheNextOneStillRuns) {
  TestStore db;
  const int folder = AddFolder(db.Get(), "f", 1);
  db.AddChannelWithPosts(folder, "c", 1);
  db.Sql("drop table TB_POST");
  EXPECT_FALSE(DeleteFolder(db.Get(), folder));
  EXPECT_EQ(db.Reports(), Strings{"no such table: TB_POST"});
  EXPECT_EQ(db.Count("TB_CHANNEL"), 0);
}

TEST(StoreFaults, AFailedChannelRecordIsLeftUnchanged) {
  TestStore db;
  db.Sql("drop table TB_CHANNEL");
  ChannelRecord record;
  record.folderId = 1;
  Connection connection(db.Get());
  EXPECT_FALSE(AddChannelRecord(connection, record));
  EXPECT_EQ(record.id, -1);
  EXPECT_EQ(record.order, -1);
}

TEST(StoreFaults, AJournalFileThatStaysBetweenStatementsGoesWithItsConnection) {
  TestStore db;
  db.AddChannelWithPosts(1, "c", 1);
  {
    Connection connection(db.Get());
    connection.KeepJournalFile();
    EXPECT_TRUE(connection.Execute("Update TB_POST Set post_readStatus = 1"));
    EXPECT_TRUE(std::filesystem::exists(db.DbPath() + "-journal"));
    EXPECT_TRUE(MarkPostsRead(db.Get(), 0, {}));  // through a connection that deletes the file
    EXPECT_TRUE(connection.Execute("Update TB_POST Set post_readStatus = 1"));
  }
  EXPECT_EQ(db.Folder().Names(), Strings{"rssdb"});
  EXPECT_EQ(db.Count("TB_POST where post_readStatus = 1"), 1);
}

TEST(StoreThreads, TwoThreadsNeverMeetALockedDatabase) {
  TestStore db;
  const int channel = db.AddChannelWithPosts(1, "c", 0);
  const auto insert = [&](const std::string& prefix) {
    ChannelRecord record;
    record.id = channel;
    for (int i = 0; i < 100; ++i)
      record.posts.push_back({"t", prefix + std::to_string(i), "", "", 0});
    Connection connection(db.Get());
    InsertChannelPosts(connection, record);
  };
  {
    std::jthread a(insert, "a");
    std::jthread b(insert, "b");
    for (int i = 0; i < 50; ++i) EXPECT_GE(CountUnreadPosts(db.Get()), 0);
  }
  EXPECT_EQ(db.Reports(), Strings());
  EXPECT_EQ(db.Count("TB_POST"), 200);
}

}  // namespace
}  // namespace feedloom
