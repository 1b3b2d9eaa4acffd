#include <gtest/gtest.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "kit/TempFolder.h"
#include "platform/UrlDownload.h"
#include "platform/XmlDom.h"
#include "profile/FirstChoices.h"
#include "profile/HostTexts.h"
#include "profile/Profile.h"
#include "profile/SharePaths.h"
#include "skin/HostConfig.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

class ProfileTest : public testing::Test {
 protected:
  Failure Create(CodePage codePage = CodePage::Korean(), const std::string& language = "KOR") {
    return CreateProfile(paths_.dir, ShareDir(), codePage, language);
  }
  HostConfig Config() const { return HostConfig(Registry(paths_.registry)); }

  // The cells of all rows that `sql` gives, or the error message.
  std::vector<std::string> Query(const std::string& sql) const {
    std::vector<std::string> cells;
    sqlite3* database = nullptr;
    sqlite3_open(paths_.database.c_str(), &database);
    const auto add = [](void* list, int count, char** values, char**) {
      for (int i = 0; i < count; ++i) {
        const char* value = values[i] == nullptr ? "NULL" : values[i];
        static_cast<std::vector<std::string>*>(list)->emplace_back(value);
      }
      return 0;
    };
    if (sqlite3_exec(database, sql.c_str(), add, &cells, nullptr) != SQLITE_OK) {
      cells = {sqlite3_errmsg(database)};
    }
    sqlite3_close(database);
    return cells;
  }

  // All entries below the profile, relative to it.
  std::vector<std::string> Entries() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(paths_.dir)) {
      names.push_back(fs::relative(entry.path(), paths_.dir));
    }
    std::ranges::sort(names);
    return names;
  }

  const TempFolder folder_;
  const ProfilePaths paths_{folder_.File("deep/내 프로필")};
};

const std::vector<std::string> kWholeProfile = {"module", "module/rssdb", "registry.reg",
                                                "sample.xml", "work"};

TEST_F(ProfileTest, HoldsAProtectedFolderACabinetAndTheSampleChannel) {
  ASSERT_EQ(Create(), std::nullopt);
  const CodePage korean = CodePage::Korean();
  EXPECT_EQ(Entries(), kWholeProfile);
  EXPECT_EQ(Query("SELECT folder_name, folder_order FROM TB_FOLDER"),
            (std::vector<std::string>{korean.FromUtf8("기본 그룹"), "-1"}));
  EXPECT_EQ(Query("SELECT scrap_channel_title, scrap_channel_order FROM TB_SCRAP_CHANNEL"),
            (std::vector<std::string>{korean.FromUtf8("내 보관함"), "0"}));
  EXPECT_EQ(Query("SELECT channel_title, channel_type, channel_state FROM TB_CHANNEL"
                  " JOIN TB_FOLDER ON channel_folderID = folder_id"),
            (std::vector<std::string>{korean.FromUtf8("Feedloom 시작하기"), "NULL", "0"}));
}

TEST_F(ProfileTest, TheDatabaseFillsInWhatTheModuleDoesNotWrite) {
  ASSERT_EQ(Create(), std::nullopt);
  Query("INSERT INTO TB_POST(post_channelID, post_Desc) VALUES(1, 'x')");
  EXPECT_EQ(Query("SELECT post_readStatus, abs(julianday('now') - julianday(post_createDate)) < 1,"
                  " length(post_createDate), post_updateDate FROM TB_POST"),
            (std::vector<std::string>{"0", "1", "19", "NULL"}));
  EXPECT_EQ(Query("SELECT length(channel_createDate), length(scrap_channel_createDate)"
                  " FROM TB_CHANNEL, TB_SCRAP_CHANNEL"),
            (std::vector<std::string>{"19", "19"}));
  const auto plan = Query(
      "EXPLAIN QUERY PLAN SELECT 1 FROM TB_POST WHERE post_channelID = 1 AND post_link = 'l'");
  EXPECT_NE(plan.back().find("IX_POST_CHANNEL_LINK"), std::string::npos) << plan.back();
}

TEST_F(ProfileTest, TheRegistryNamesThePlacesAndTheLanguage) {
  ASSERT_EQ(Create(CodePage::Utf8(), "eng"), std::nullopt);
  const HostConfig config = Config();
  EXPECT_EQ(config.GetCodePage(), CodePage::Utf8());
  EXPECT_EQ(config.GetHostLanguage(), "ENG");
  EXPECT_EQ(config.GetAppTitle(), "Halvix 3.0");
  EXPECT_EQ(config.GetWorkDir(), paths_.workDir);
  EXPECT_EQ(config.GetImageDir(), ShareDir() + "/skin/light/");
  EXPECT_EQ(config.GetCurrentPath(), ShareDir() + "/skin/light");
  EXPECT_EQ(ReadHostTexts(config).HostGetText(kSectionTexts, kTextScrapTooltip),
            "Save to a cabinet");
  EXPECT_EQ(ReadHostTexts(config).HostGetText(kSectionTexts, kTextUrlScheme), "http");
}

TEST_F(ProfileTest, TheSampleChannelsFeedCanBeFetchedAndRead) {
  for (const char* language : {"KOR", "ENG"}) {
    fs::remove_all(paths_.dir);
    ASSERT_EQ(Create(CodePage::Korean(), language), std::nullopt);
    const std::string address = Query("SELECT channel_xmllink FROM TB_CHANNEL").at(0);
    EXPECT_TRUE(address.starts_with("file:///")) << address;
    const std::string copy = folder_.File("copy.xml");
    EXPECT_TRUE(UrlDownloadToFile({.address = address}, copy, {}).ok) << address;
    XmlDocument feed;
    ASSERT_EQ(feed.Load(copy), XmlDocument::LoadStatus::Loaded);
    EXPECT_EQ(feed.Root().Descendants("item").size(), 5u);
    for (const XmlElement item : feed.Root().Descendants("item")) {
      const std::string description = item.FirstDescendant("description").Text();
      EXPECT_EQ(CodePage::Korean().FromUtf8(description).find('?') != std::string::npos,
                description.find('?') != std::string::npos)
          << "a character outside the Korean code page: " << description;
    }
  }
}

TEST_F(ProfileTest, IsForItsUserAlone) {
  ASSERT_EQ(Create(), std::nullopt);
  for (const std::string& directory :
       {folder_.File("deep"), paths_.dir, paths_.moduleDir, paths_.workDir}) {
    EXPECT_EQ(fs::status(directory).permissions(), fs::perms::owner_all) << directory;
  }
}

TEST_F(ProfileTest, AnExistingProfileIsLeftAlone) {
  fs::create_directories(paths_.dir);
  folder_.Write("deep/내 프로필/registry.reg", "mine");
  const Failure failure = Create();
  ASSERT_TRUE(failure);
  EXPECT_NE(failure->find("There is a profile in"), std::string::npos) << *failure;
  EXPECT_EQ(Entries(), std::vector<std::string>{"registry.reg"});
  EXPECT_EQ(folder_.Read("deep/내 프로필/registry.reg"), "mine");
}

TEST_F(ProfileTest, AnInterruptedCreationIsDoneAgainAndKeepsTheDatabase) {
  ASSERT_EQ(Create(), std::nullopt);
  Query("UPDATE TB_FOLDER SET folder_name = 'kept'");
  fs::remove(paths_.registry);
  fs::remove(paths_.workDir);
  folder_.Write("deep/내 프로필/registry.reg.new", "half");
  EXPECT_EQ(Create(), std::nullopt);
  EXPECT_EQ(Query("SELECT folder_name FROM TB_FOLDER"), std::vector<std::string>{"kept"});
  EXPECT_EQ(Entries(), kWholeProfile);

  fs::remove(paths_.registry);
  fs::rename(paths_.database, paths_.database + ".new");  // whole, but not in its place yet
  folder_.Write("deep/내 프로필/module/rssdb.new-journal", "half");
  EXPECT_EQ(Create(), std::nullopt);
  EXPECT_EQ(Query("SELECT count(*) FROM TB_CHANNEL"), std::vector<std::string>{"1"});
  EXPECT_EQ(Entries(), kWholeProfile);
}

TEST_F(ProfileTest, OfTwoCreationsAtATimeOneSucceeds) {
  Failure first;
  std::thread other([&] { first = Create(); });
  const Failure second = Create();
  other.join();
  EXPECT_NE(first.has_value(), second.has_value());
  EXPECT_EQ(Query("SELECT count(*) FROM TB_CHANNEL"), std::vector<std::string>{"1"});
  EXPECT_EQ(Entries(), kWholeProfile);
}

TEST_F(ProfileTest, WhatStandsInTheWayIsNamed) {
  const std::string blocker = folder_.Write("deep", "a file");
  Failure failure = Create();
  EXPECT_EQ(failure, "Cannot create the directory '" + blocker + "': Not a directory.");
  fs::remove(blocker);

  fs::create_directories(paths_.database);
  failure = Create();
  ASSERT_TRUE(failure);
  EXPECT_NE(failure->find(paths_.database + "': Is a directory."), std::string::npos) << *failure;
  EXPECT_FALSE(ProfileExists(paths_));
  EXPECT_EQ(Entries(), (std::vector<std::string>{"module", "module/rssdb", "sample.xml", "work"}));
}

TEST_F(ProfileTest, WithoutItsIngredientsNothingIsMade) {
  const std::string share = folder_.File("share");
  EXPECT_EQ(CreateProfile(paths_.dir, share, CodePage::Korean(), "KOR"),
            "Cannot read the shared file '" + share + "/schema.sql'.");
  EXPECT_TRUE(Create(CodePage::Korean(), "XYZ"));
  fs::copy(ShareDir(), share, fs::copy_options::recursive);
  folder_.Write("share/string.ini", "[HALVIX]\n");
  EXPECT_EQ(CreateProfile(paths_.dir, share, CodePage::Korean(), "KOR"),
            "The shared file '" + share + "/string.ini' lacks the text PROFILE_FOLDER.");
  EXPECT_TRUE(
      CreateProfile(folder_.File(std::string(250, 'x')), ShareDir(), CodePage::Korean(), "KOR"));
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"share"});
}

TEST_F(ProfileTest, ABadSchemaLeavesNoDatabase) {
  const std::string share = folder_.File("share");
  fs::copy(ShareDir(), share, fs::copy_options::recursive);
  folder_.Write("share/schema.sql", "CREATE TABLE TB_FOLDER (folder_id); nonsense;");
  const Failure failure = CreateProfile(paths_.dir, share, CodePage::Korean(), "KOR");
  ASSERT_TRUE(failure);
  EXPECT_NE(failure->find("syntax error"), std::string::npos) << *failure;
  EXPECT_EQ(Entries(), (std::vector<std::string>{"module", "sample.xml", "work"}));
}

TEST_F(ProfileTest, SharedPathsAreRepairedOnceTheyAreGone) {
  const std::string share = folder_.File("share");
  fs::copy(ShareDir(), share, fs::copy_options::recursive);
  ASSERT_EQ(CreateProfile(paths_.dir, share, CodePage::Korean(), "KOR"), std::nullopt);

  EXPECT_EQ(RepairSharePaths(paths_.dir, ShareDir()), std::nullopt);
  EXPECT_EQ(Config().GetIniDir(), share + "/");

  fs::remove_all(share);
  EXPECT_EQ(RepairSharePaths(paths_.dir, share), "There is no directory '" + share + "'.");
  EXPECT_EQ(RepairSharePaths(paths_.dir, ShareDir()), std::nullopt);
  EXPECT_EQ(Config().GetIniDir(), ShareDir() + "/");
  EXPECT_EQ(Config().GetImageDir(), ShareDir() + "/skin/light/");
  EXPECT_EQ(Config().GetCurrentPath(), ShareDir() + "/skin/light");
  EXPECT_EQ(Config().GetWorkDir(), paths_.workDir);

  ASSERT_EQ(ChooseSkin(paths_.dir, ShareDir(), kDarkSkin), std::nullopt);
  ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, kValueIniDir, share));
  EXPECT_EQ(RepairSharePaths(paths_.dir, ShareDir()), std::nullopt);
  EXPECT_EQ(SkinName(Config()), kDarkSkin) << "the skin stays";
  EXPECT_EQ(Config().GetIniDir(), ShareDir() + "/");

  ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, kValueImageDir, folder_.Path()));
  EXPECT_EQ(RepairSharePaths(paths_.dir, ShareDir()), std::nullopt);
  EXPECT_EQ(SkinName(Config()), kLightSkin) << "there was none in that directory";
  EXPECT_TRUE(ChooseSkin(paths_.dir, ShareDir(), "sepia"));
  EXPECT_EQ(SkinName(Config()), kLightSkin);

  folder_.Write("deep/내 프로필/registry.reg", "not a registry");
  EXPECT_TRUE(RepairSharePaths(paths_.dir, ShareDir()));
}

TEST_F(ProfileTest, TheWorkFolderIsMadeAgainWhereItCanBe) {
  ASSERT_EQ(CreateProfile(paths_.dir, ShareDir(), CodePage::Korean(), "KOR"), std::nullopt);
  fs::remove_all(paths_.workDir);
  EXPECT_EQ(RepairSharePaths(paths_.dir, ShareDir()), std::nullopt);
  EXPECT_TRUE(fs::is_directory(paths_.workDir));
  fs::remove_all(paths_.workDir);
  ASSERT_EQ(WriteFileWhole(paths_.workDir, "a file"), std::nullopt);
  EXPECT_EQ(RepairSharePaths(paths_.dir, ShareDir()), std::nullopt) << "there is much to read";
}

TEST(FirstChoicesTest, FollowTheUsersLocale) {
  const auto languageIn = [](const char* all, const char* messages, const char* lang) {
    setenv("LC_ALL", all, 1);
    setenv("LC_MESSAGES", messages, 1);
    setenv("LANG", lang, 1);
    return FirstLanguage();
  };
  EXPECT_EQ(languageIn("", "", "ko_KR.UTF-8"), "KOR");
  EXPECT_EQ(languageIn("", "", "de_DE.UTF-8@euro"), "ENG");
  EXPECT_EQ(languageIn("", "en_US", "ko_KR"), "ENG");
  EXPECT_EQ(languageIn("ko", "en_US", "en_US"), "KOR");
  EXPECT_EQ(languageIn("", "", ""), "KOR") << "no locale";
  EXPECT_EQ(languageIn("C.UTF-8", "", "en_US"), "KOR");
  EXPECT_EQ(FirstCodePage("kor"), CodePage::Korean());
  EXPECT_EQ(FirstCodePage("ENG"), CodePage::Utf8());
}

TEST(DefaultProfileDirTest, FollowsTheDesktopsDataDirectory) {
  setenv("HOME", "/home/somebody", 1);
  setenv("XDG_DATA_HOME", "/data", 1);
  EXPECT_EQ(DefaultProfileDir(), "/data/halvix");
  setenv("XDG_DATA_HOME", "relative", 1);
  EXPECT_EQ(DefaultProfileDir(), "/home/somebody/.local/share/halvix");
  unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(DefaultProfileDir(), "/home/somebody/.local/share/halvix");
}

}  // namespace
}  // namespace feedloom
