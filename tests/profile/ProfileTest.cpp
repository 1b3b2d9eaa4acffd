#include <fcntl.h>
#include <sqlite3.h>
#include <stdlib.h>

#include "kit/ManualClock.h"
#include "kit/TempFolder.h"
#include "net/UrlDownload.h"
#include "profile/DailyCopies.h"
#include "profile/HostTexts.h"
#include "profile/HostWishes.h"
#include "profile/IniFile.h"
#include "profile/KeptDatabase.h"
#include "profile/MovedProfile.h"
#include "profile/Profile.h"
#include "profile/ProfileDefaults.h"
#include "profile/SharePaths.h"
#include "profile/WriteAhead.h"
#include "skin/Keys.h"

namespace feedloom {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

struct ProfileTest : testing::Test {
  // The failure's text, "" without one.
  std::string Create() { return CreateProfile(paths_.dir, share_, korean_, "KOR").value_or(""); }
  std::string Repair() const { return RepairSharePaths(paths_.dir, ShareDir()).value_or(""); }
  HostConfig Config() const { return HostConfig(Registry(paths_.registry)); }
  void CopyShare() {
    share_ = folder_.File("share");
    fs::copy(ShareDir(), share_, fs::copy_options::recursive);
  }
  // The first cell of the last row that `sql` gives.
  std::string Query(const std::string& sql) const { return QueryIn(paths_, sql); }
  std::string QueryIn(const ProfilePaths& paths, const std::string& sql) const {
    std::string cell;
    const auto keep = [](void* into, int, char** cells, char**) {
      *static_cast<std::string*>(into) = cells[0];
      return 0;
    };
    sqlite3* database = nullptr;
    sqlite3_open(paths.database.c_str(), &database);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), keep, &cell, nullptr), SQLITE_OK) << sql;
    sqlite3_close(database);
    return korean_.ToUtf8(cell);
  }
  // Without what the database has beside it as long as somebody uses it.
  std::set<std::string> Entries() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(paths_.dir))
      names.insert(fs::relative(entry.path(), paths_.dir));
    names.erase("module/rssdb-wal"), names.erase("module/rssdb-shm");
    return names;
  }
  KeptDatabase Keep() const { return KeepDatabase(paths_.database, share_, 0ms); }
  // The links of the posts, after `sql`.
  std::string LinksAfter(const std::string& sql) const {
    return Query(sql +
                 "; SELECT group_concat(post_channelID || post_link) FROM (SELECT * FROM "
                 "TB_POST ORDER BY post_id)");
  }

  const TempFolder folder_;
  const ProfilePaths paths_{folder_.File("deep/내 프로필")};
  const std::set<std::string> kAll{"module", "module/rssdb", "registry.reg", "sample.xml", "work"};
  const CodePage korean_ = CodePage::Korean();
  std::string share_ = ShareDir();
};

TEST_F(ProfileTest, HoldsAProtectedFolderACabinetAndTheSampleChannelForItsUserAlone) {
  ASSERT_EQ(Create(), "");
  EXPECT_EQ(Entries(), kAll);
  EXPECT_EQ(fs::status(paths_.moduleDir).permissions(), fs::perms::owner_all);
  EXPECT_EQ(Query("SELECT folder_name || folder_order FROM TB_FOLDER"), "기본 그룹-1");
  EXPECT_EQ(Query("SELECT scrap_channel_title || scrap_channel_order FROM TB_SCRAP_CHANNEL"),
            "내 보관함0");
  EXPECT_EQ(Query("SELECT channel_title || channel_state || length(channel_createDate)"
                  " FROM TB_CHANNEL JOIN TB_FOLDER ON channel_folderID = folder_id"),
            "Feedloom 시작하기019");
  const std::string address = Query("SELECT channel_xmllink FROM TB_CHANNEL");
  EXPECT_TRUE(UrlDownloadToFile({.address = address}, folder_.File("copy.xml"), {}).ok) << address;
  EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name = 'IX_POST_CHANNEL_LINK'"), "1");
}

TEST_F(ProfileTest, TheRegistryNamesPlacesLanguageTextsAndWhatIsDeletedWhen) {
  ASSERT_EQ(CreateProfile(paths_.dir, share_, CodePage::Utf8(), "eng"), std::nullopt);
  EXPECT_EQ(Config().GetCodePage(), CodePage::Utf8());
  EXPECT_EQ(Config().GetHostLanguage() + Config().GetAppTitle(), "ENGFeedloom");
  EXPECT_EQ(Registry(paths_.registry).ReadDword(kModuleKey, "FeedDeleteMode"), 1u);
  EXPECT_EQ(Registry(paths_.registry).ReadString(kModuleKey, "FeedDeleteDateStr"), "30");
  const auto [text, value] = ReadHostTexts(Config());
  EXPECT_EQ(text(kSectionTexts, kTextScrapTooltip), "Clip to a cabinet");
  EXPECT_EQ(value(kSectionHtml, kImageMainPage), "rss_html/main_ENG.html");
  EXPECT_EQ(value(kSectionColors, "COLOR_TEXT"), "#2B3A40") << "the skin's own";
}

TEST_F(ProfileTest, AnInterruptedCreationIsDoneAgainAndKeepsTheDatabase) {
  ASSERT_EQ(Create(), "");
  EXPECT_EQ(Create(), "There is a profile in '" + paths_.dir + "' already.");
  Query("UPDATE TB_FOLDER SET folder_name = 'kept'");
  fs::remove(paths_.registry), fs::remove(paths_.workDir);
  folder_.Write("deep/내 프로필/registry.reg.new", "half");
  EXPECT_EQ(Create(), "");
  EXPECT_EQ(Query("SELECT folder_name FROM TB_FOLDER"), "kept");

  fs::remove(paths_.registry);
  fs::rename(paths_.database, paths_.database + ".new");  // whole, but not in its place yet
  folder_.Write("deep/내 프로필/module/rssdb.new-journal", "half");
  EXPECT_EQ(Create(), "");
  EXPECT_EQ(Query("SELECT count(*) FROM TB_CHANNEL"), "1");
  EXPECT_EQ(Entries(), kAll);
}

TEST_F(ProfileTest, AnOlderDatabaseIsBroughtUpToDateBesideItsUsersAndIsOneWholeFileAfterThem) {
  ASSERT_EQ(Create(), "");
  EXPECT_EQ(Query("PRAGMA journal_mode"), "wal");
  fs::remove(paths_.database);
  sqlite3* other = nullptr;
  sqlite3_open(paths_.database.c_str(), &other);
  const auto run = [&](const std::string& sql) {
    EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
  };
  run(ReadFile(share_ + "/schema.sql").value() + "BEGIN EXCLUSIVE");
  Keep();
  run("INSERT INTO TB_POST(post_channelID, post_link) VALUES(1, 'a'); COMMIT");
  EXPECT_EQ(Query("PRAGMA journal_mode"), "delete") << "it was locked";
  {
    const KeptDatabase kept = Keep(), second = Keep();
    run("INSERT INTO TB_POST(post_channelID, post_link) VALUES(1, 'b')");
    EXPECT_EQ(Query("PRAGMA journal_mode"), "wal");
    sqlite3_close(other);
  }
  EXPECT_EQ(fs::file_size(paths_.database + "-wal"), 0);
  fs::remove(paths_.database + "-wal"), fs::remove(paths_.database + "-shm");
  EXPECT_EQ(LinksAfter("SELECT 1"), "1a,1b");
  EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE type = 'trigger'"), "12");
  EXPECT_EQ(Query("PRAGMA cache_size"), "4000");
}

// As long as it lives, files lie where programs cannot share memory.
class DiskWithoutSharedMemory {
 public:
  DiskWithoutSharedMemory() {
    disk_.zName = "no-shared-memory";
    disk_.xOpen = [](sqlite3_vfs* disk, const char* name, sqlite3_file* file, int flags, int* got) {
      const int status = sqlite3_vfs_find("unix")->xOpen(disk, name, file, flags, got);
      if (status != SQLITE_OK || (flags & SQLITE_OPEN_MAIN_DB) == 0) return status;
      static sqlite3_io_methods methods;
      methods = *file->pMethods;
      methods.xShmMap = [](auto...) { return SQLITE_IOERR_SHMMAP; };
      file->pMethods = &methods;
      return SQLITE_OK;
    };
    sqlite3_vfs_register(&disk_, 1);
  }
  ~DiskWithoutSharedMemory() { sqlite3_vfs_unregister(&disk_); }

 private:
  sqlite3_vfs disk_ = *sqlite3_vfs_find("unix");
};

TEST_F(ProfileTest, ADatabaseThatCannotBeInWriteAheadModeWhereItLiesIsInTheOlderOneToldOnce) {
  ASSERT_EQ(Create(), "");
  const Registry registry(paths_.registry);
  {
    const DiskWithoutSharedMemory disk;
    const KeptDatabase kept = Keep();
    EXPECT_EQ(LinksAfter("INSERT INTO TB_POST(post_channelID, post_link) VALUES(1, 'a')"), "1a");
    EXPECT_EQ(Query("PRAGMA journal_mode"), "delete");
    EXPECT_TRUE(IsOlderModeNews(kept.get(), registry));
    EXPECT_FALSE(IsOlderModeNews(Keep().get(), registry));
    EXPECT_EQ(Query("PRAGMA journal_mode"), "delete") << "not tried on it again";
    EXPECT_EQ(CreateProfile(folder_.File("new"), share_, korean_, "KOR"), std::nullopt);
    EXPECT_EQ(QueryIn(ProfilePaths(folder_.File("new")), "SELECT count(*) FROM TB_CHANNEL"), "1");
  }
  EXPECT_FALSE(IsOlderModeNews(Keep().get(), registry));
  EXPECT_EQ(Query("PRAGMA journal_mode"), "wal");
  EXPECT_EQ(Entries(), kAll) << "nothing is left of what was tried";
  const DiskWithoutSharedMemory again;
  EXPECT_TRUE(IsOlderModeNews(Keep().get(), registry));
  EXPECT_TRUE(IsOnNetwork(0x6969) && IsOnNetwork(0xFF534D42)) << "NFS and CIFS, in statfs(2)";
}

TEST_F(ProfileTest, ADeletedPostStaysAwayFromItsChannelUntilThatGoesInWhateverOrder) {
  ASSERT_EQ(Create(), "");
  const std::string add = "INSERT INTO TB_POST(post_channelID, post_link) SELECT ";
  const std::string come = add +
                           "1, 'a' UNION ALL SELECT 1, '' UNION ALL SELECT 1, 'b' "
                           "UNION ALL SELECT 2, 'a'";
  const std::string channel = "INSERT INTO TB_CHANNEL(channel_id) VALUES(1)";
  EXPECT_EQ(LinksAfter(come + "; DELETE FROM TB_POST WHERE post_link < 'b'; " + come), "1b,1b,2a");
  EXPECT_EQ(Query(add + "1, 'a'; SELECT changes()"), "0") << "as if it were there already";
  EXPECT_EQ(LinksAfter("DELETE FROM TB_GONE_LINK WHERE gone_link = 'a'; " + come),
            "1b,1b,2a,1a,1b,2a");
  const std::string noPost = "DELETE FROM TB_POST; ", noChannel = "DELETE FROM TB_CHANNEL; ";
  for (const std::string& gone : {noPost + noChannel, noChannel + noPost,
                                  "DELETE FROM TB_POST; PRAGMA recursive_triggers = OFF; REPLACE "
                                  "INTO TB_CHANNEL(channel_id) VALUES(1); " +
                                      noPost + noChannel}) {
    EXPECT_EQ(LinksAfter(gone + channel + "; " + come), "1a,1,1b,2a");
  }
}

TEST_F(ProfileTest, OfAChannelsDeletedLinksTheNewestFourToFiveThousandAreKept) {
  ASSERT_EQ(Create(), "");
  const auto pass = [](int first, int last) {
    const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT " + std::to_string(first) +
                                " UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(last);
    return numbers +
           ") INSERT INTO TB_POST(post_channelID, post_link) SELECT 1, i FROM n; DELETE "
           "FROM TB_POST; SELECT count(*) || '-' || min(CAST(gone_link AS INTEGER)) FROM "
           "TB_GONE_LINK";
  };
  EXPECT_EQ(Query(pass(1, 4999)), "4999-1");
  EXPECT_EQ(Query(pass(4998, 5000)), "4000-1001") << "of which two have gone before";
  EXPECT_EQ(Query(pass(5001, 12345)), "4345-8001");
}

TEST_F(ProfileTest, WhatStandsInTheWayIsNamedAndNoDatabaseIsLeftHalfMade) {
  CopyShare();
  const std::string blocker = folder_.Write("deep", "a file");
  EXPECT_EQ(Create(), "Cannot create the directory '" + blocker + "': Not a directory.");
  fs::remove(blocker);
  folder_.Write("share/schema.sql", "CREATE TABLE TB_FOLDER (folder_id);");
  EXPECT_NE(Create().find("no column"), std::string::npos);
  EXPECT_EQ(Entries(), std::set<std::string>({"module", "sample.xml", "work"}));
}

TEST_F(ProfileTest, PathsThatAreGoneAreRepairedAndTheSkinStays) {
  CopyShare();
  ASSERT_EQ(Create(), "");
  EXPECT_EQ(ChooseSkin(paths_.dir, share_, "x"), "There is no skin in '" + share_ + "/skin/x'.");
  ASSERT_EQ(ChooseSkin(paths_.dir, share_, kDarkSkin), std::nullopt);
  fs::remove(paths_.workDir);
  EXPECT_EQ(Repair(), "");
  EXPECT_TRUE(fs::is_directory(paths_.workDir));
  EXPECT_EQ(Config().GetIniDir(), share_ + "/") << "that was not gone";
  fs::remove(paths_.workDir);
  folder_.Write("deep/내 프로필/work", "a file");  // nothing can be downloaded, but much be read
  for (const auto& [gone, skin] : {std::pair(kValueIniDir, "dark"), {kValueImageDir, "light"}}) {
    ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, gone, folder_.File("gone")));
    EXPECT_EQ(Repair(), "");
    EXPECT_EQ(Config().GetIniDir(), ShareDir() + "/");
    EXPECT_EQ(Config().GetCurrentPath(), ShareDir() + "/skin/" + skin);
  }
  folder_.Write("deep/내 프로필/registry.reg", "not a registry");
  EXPECT_NE(Repair(), "");
}

TEST_F(ProfileTest, TheCopiesOfTheLastFiveDaysAreKept) {
  ASSERT_EQ(Create(), "");
  KeepDailyCopy(paths_);
  EXPECT_EQ(Entries(), kAll) << "no copy yet";
  const std::string last = paths_.database + ".bak";
  for (const char* copy : {"a", "b", "c", "d", "e", "f", "g"}) {
    fs::remove(last);
    folder_.Write("deep/내 프로필/module/rssdb.bak", copy);
    const timespec noon{NoonOf(2026, 5, std::min(*copy - 'a' + 1, 6)).time_since_epoch() / 1s, 0};
    utimensat(0, last.c_str(), std::array{noon, noon}.data(), 0);  // two are of the sixth day
    KeepDailyCopy(paths_);
  }
  std::string kept;
  for (const std::string& copy : AutomaticCopies(paths_))
    kept += copy.substr(copy.size() - 2) + ReadFile(copy).value() + " ";
  EXPECT_EQ(kept, "akg 06g 05e 04d 03c 02b ");
}

TEST_F(ProfileTest, PathsInItFollowItWhenItIsMovedOrCopiedAndOthersStay) {
  ASSERT_EQ(Create(), "");
  Query("INSERT INTO TB_CHANNEL(channel_xmllink) VALUES('file:///elsewhere/a'), ('http://a/')");
  for (const bool isKnown : {true, false}) {  // a profile of an older program does not know
    const ProfilePaths copy(folder_.File(isKnown ? "a copy" : "another"));
    fs::copy(paths_.dir, copy.dir, fs::copy_options::recursive);
    const Registry registry(copy.registry);
    EXPECT_TRUE(isKnown || registry.WriteString(kHostKey, "PROFILE_DIR", ""));
    for (int start = 0; start < 2; ++start) FollowMove(copy.dir);
    EXPECT_EQ(HostConfig(registry).GetWorkDir(), copy.workDir);
    EXPECT_EQ(HostConfig(registry).GetIniDir(), share_ + "/");
    EXPECT_EQ(QueryIn(copy, "SELECT group_concat(channel_xmllink) FROM TB_CHANNEL"),
              FileUrl(copy.sampleFeed) + ",file:///elsewhere/a,http://a/");
  }
  FollowMove(paths_.dir);
  EXPECT_EQ(Config().GetWorkDir(), paths_.workDir) << "the first one is left alone";
  ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, "WORKDIR", "/my/work"));
  fs::create_directory_symlink(paths_.dir, folder_.File("link"));
  FollowMove(folder_.File("link"));
  EXPECT_EQ(Config().GetWorkDir(), "/my/work");
  EXPECT_EQ(Query("SELECT channel_xmllink FROM TB_CHANNEL LIMIT 1"), FileUrl(paths_.sampleFeed));
}

TEST(ProfileDefaultsTest, FollowTheUsersLocaleAndDataDirectory) {
  const char* const kLocales[][4] = {{"", "", "", "ENG"},
                                     {"", "", "C", "ENG"},
                                     {"", "", "de_DE.UTF-8@euro", "ENG"},
                                     {"", "en_US", "ko_KR", "ENG"},
                                     {"ko", "en_US", "en_US", "KOR"}};
  for (const auto& [all, messages, lang, language] : kLocales) {
    setenv("LC_ALL", all, 1), setenv("LC_MESSAGES", messages, 1), setenv("LANG", lang, 1);
    EXPECT_EQ(DefaultLanguage(), language);
  }
  setenv("HOME", "/home/a", 1), setenv("XDG_DATA_HOME", "/data", 1);
  EXPECT_EQ(DefaultProfileDir(), "/data/halvix");
  setenv("XDG_DATA_HOME", "relative", 1);
  EXPECT_EQ(DefaultProfileDir(), "/home/a/.local/share/halvix");
}

TEST(IniFileTest, AValueIsWhatFollowsTheFirstEqualsSignOfItsKey) {
  const IniFile file = IniFile::Parse(
      "\xEF\xBB\xBF; a comment\r\n"
      "[ ONE ]\r\n  key = a = b ; c  \r\nkey=second\r\n;off=x\r\nno equals sign\r\nempty=\r\n"
      "[TWO]\nlast=\"quoted\"");
  EXPECT_EQ(file.Value("ONE", "KEY"), "a = b ; c");
  EXPECT_EQ(file.Value("one", "empty"), "");
  EXPECT_EQ(file.Value("TWO", "last"), "\"quoted\"");
  for (const char* none : {";off", "last"}) EXPECT_EQ(file.Value("ONE", none), std::nullopt);
}

TEST_F(ProfileTest, AsksTheModuleForMoreUnlessTheProfileSaysOtherwise) {
  EXPECT_EQ(Create(), "");
  EXPECT_TRUE(Config().StartsWithLast() && Config().SaysEmptyLists());
  std::filesystem::remove(paths_.registry);  // an older profile has no such values
  ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, kValueStart, "MAIN"));
  ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, kValueAppTitle, "Halvix 3.0"));
  EXPECT_EQ(StoreHostWishes(paths_.dir), Failure());
  EXPECT_TRUE(!Config().StartsWithLast() && Config().SaysEmptyLists());
  EXPECT_EQ(Config().GetAppTitle(), "Feedloom");
}

}  // namespace feedloom
