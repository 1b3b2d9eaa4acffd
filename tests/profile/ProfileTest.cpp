#include <gtest/gtest.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <set>
#include <thread>

#include "kit/TempFolder.h"
#include "platform/UrlDownload.h"
#include "profile/HostTexts.h"
#include "profile/IniFile.h"
#include "profile/Profile.h"
#include "profile/ProfileDefaults.h"
#include "profile/SharePaths.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

namespace fs = std::filesystem;

class ProfileTest : public testing::Test {
 protected:
  // The failure's text, "" without one.
  std::string Create(const std::string& language = "KOR", CodePage codePage = CodePage::Korean()) {
    return CreateProfile(paths_.dir, share_, codePage, language).value_or("");
  }
  std::string Repair() const { return RepairSharePaths(paths_.dir, ShareDir()).value_or(""); }
  HostConfig Config() const { return HostConfig(Registry(paths_.registry)); }
  void CopyShare() {
    share_ = folder_.File("share");
    fs::copy(ShareDir(), share_, fs::copy_options::recursive);
  }
  // The first cell of the last row that `sql` gives.
  std::string Query(const char* sql) const {
    std::string cell;
    const auto keep = [](void* into, int, char** cells, char**) {
      *static_cast<std::string*>(into) = cells[0];
      return 0;
    };
    sqlite3* database = nullptr;
    sqlite3_open(paths_.database.c_str(), &database);
    EXPECT_EQ(sqlite3_exec(database, sql, keep, &cell, nullptr), SQLITE_OK) << sql;
    sqlite3_close(database);
    return CodePage::Korean().ToUtf8(cell);
  }
  std::set<std::string> Entries() const {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(paths_.dir)) {
      names.insert(fs::relative(entry.path(), paths_.dir));
    }
    return names;
  }

  const TempFolder folder_;
  const ProfilePaths paths_{folder_.File("deep/내 프로필")};
  const std::set<std::string> whole_{"module", "module/rssdb", "registry.reg", "sample.xml",
                                     "work"};
  std::string share_ = ShareDir();
};

TEST_F(ProfileTest, HoldsAProtectedFolderACabinetAndTheSampleChannelForItsUserAlone) {
  ASSERT_EQ(Create(), "");
  EXPECT_EQ(Entries(), whole_);
  for (const auto& dir : {folder_.File("deep"), paths_.dir, paths_.moduleDir, paths_.workDir}) {
    EXPECT_EQ(fs::status(dir).permissions(), fs::perms::owner_all) << dir;
  }
  EXPECT_EQ(Query("SELECT group_concat(folder_name || folder_order) FROM TB_FOLDER"),
            "기본 그룹-1");
  EXPECT_EQ(Query("SELECT group_concat(scrap_channel_title || scrap_channel_order) ||"
                  " length(scrap_channel_createDate) FROM TB_SCRAP_CHANNEL"),
            "내 보관함019");
  EXPECT_EQ(Query("SELECT channel_title || quote(channel_type) || channel_state ||"
                  " length(channel_createDate) FROM TB_CHANNEL JOIN TB_FOLDER"
                  " ON channel_folderID = folder_id"),
            "Feedloom 시작하기NULL019");
  const std::string address = Query("SELECT channel_xmllink FROM TB_CHANNEL");
  EXPECT_TRUE(UrlDownloadToFile({.address = address}, folder_.File("copy.xml"), {}).ok) << address;
  Query("INSERT INTO TB_POST(post_channelID, post_Desc) VALUES(1, 'x')");
  EXPECT_EQ(Query("SELECT post_readStatus || length(post_createDate) || quote(post_updateDate) ||"
                  " (abs(julianday('now') - julianday(post_createDate)) < 1) FROM TB_POST"),
            "019NULL1");
  EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name = 'IX_POST_CHANNEL_LINK'"), "1");
}

TEST_F(ProfileTest, TheRegistryNamesPlacesLanguageTextsAndWhatIsDeletedWhen) {
  ASSERT_EQ(Create("eng", CodePage::Utf8()), "");
  EXPECT_EQ(Config().GetCodePage(), CodePage::Utf8());
  EXPECT_EQ(Config().GetHostLanguage() + Config().GetAppTitle(), "ENGHalvix 3.0");
  EXPECT_EQ(Config().GetWorkDir(), paths_.workDir);
  for (const auto& [name, value] : {std::pair("FeedDeleteMode", 1u), {"FeedDeleteDate", 30u}}) {
    const Registry registry(paths_.registry);
    EXPECT_EQ(registry.ReadDword(kModuleKey, name), value);
    EXPECT_EQ(registry.ReadString(kModuleKey, name + std::string("Str")), std::to_string(value));
  }
  const auto [text, value] = ReadHostTexts(Config());
  EXPECT_EQ(text(kSectionTexts, kTextScrapTooltip), "Save to a cabinet");
  EXPECT_EQ(text(kSectionTexts, kTextUrlScheme), "http") << "the same in all languages";
  EXPECT_EQ(text(kSectionTexts, "none"), "");
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
  EXPECT_EQ(Entries(), whole_);

  fs::remove(paths_.registry);
  fs::rename(paths_.database, paths_.database + ".new");  // whole, but not in its place yet
  folder_.Write("deep/내 프로필/module/rssdb.new-journal", "half");
  EXPECT_EQ(Create(), "");
  EXPECT_EQ(Query("SELECT count(*) FROM TB_CHANNEL"), "1");
  EXPECT_EQ(Entries(), whole_);
}

TEST_F(ProfileTest, OfTwoCreationsAtATimeOneSucceeds) {
  std::string first;
  std::thread other([&] { first = Create(); });
  const std::string second = Create();
  other.join();
  EXPECT_NE(first.empty(), second.empty());
  EXPECT_EQ(Query("SELECT count(*) FROM TB_CHANNEL"), "1");
}

TEST_F(ProfileTest, WhatStandsInTheWayIsNamedAndNoDatabaseIsLeftHalfMade) {
  CopyShare();
  EXPECT_EQ(Create("XYZ"), "Cannot read the shared file '" + share_ + "/sample/XYZ.xml'.");
  const std::string blocker = folder_.Write("deep", "a file");
  EXPECT_EQ(Create(), "Cannot create the directory '" + blocker + "': Not a directory.");
  fs::remove(blocker);
  for (const auto& [sql, words] : {std::pair("nonsense;", "syntax error"),
                                   {"CREATE TABLE TB_FOLDER (folder_id);", "no column"}}) {
    folder_.Write("share/schema.sql", sql);
    EXPECT_NE(Create().find(words), std::string::npos) << sql;
    EXPECT_EQ(Entries(), std::set<std::string>({"module", "sample.xml", "work"}));
  }
  folder_.Write("share/string.ini", "[HALVIX]\n");
  EXPECT_EQ(Create(), "The shared file '" + share_ + "/string.ini' lacks the text PROFILE_FOLDER.");
  share_ = ShareDir();
  for (const std::size_t length : {259u, 260u}) {  // of the work folder's path
    const std::string name(length - sizeof("/work") - folder_.Path().size(), 'x');
    const Failure failure = CreateProfile(folder_.File(name), share_, CodePage::Korean(), "KOR");
    EXPECT_EQ(failure.has_value(), length == 260);
  }
  fs::create_directories(paths_.database);
  EXPECT_NE(Create().find(paths_.database + "': Is a directory."), std::string::npos);
  EXPECT_FALSE(ProfileExists(paths_));
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
  fs::remove_all(share_);
  EXPECT_EQ(RepairSharePaths(paths_.dir, share_), "There is no directory '" + share_ + "'.");
  fs::remove(paths_.workDir);
  folder_.Write("deep/내 프로필/work", "a file");  // nothing can be downloaded, but much be read
  for (const auto& [gone, skin] :
       {std::pair(kValueCurrentPath, "dark"), {kValueIniDir, "dark"}, {kValueImageDir, "light"}}) {
    ASSERT_TRUE(Registry(paths_.registry).WriteString(kHostKey, gone, folder_.File("gone")));
    EXPECT_EQ(Repair(), "");
    EXPECT_EQ(Config().GetIniDir(), ShareDir() + "/");
    EXPECT_EQ(Config().GetImageDir(), ShareDir() + "/skin/" + skin + "/");
    EXPECT_EQ(Config().GetCurrentPath(), ShareDir() + "/skin/" + skin);
  }
  folder_.Write("deep/내 프로필/registry.reg", "not a registry");
  EXPECT_NE(Repair(), "");
}

void Set(const char* name, const char* value) { value ? setenv(name, value, 1) : unsetenv(name); }

TEST(ProfileDefaultsTest, FollowTheUsersLocaleAndDataDirectory) {
  const char* const kLocales[][4] = {
      {nullptr, nullptr, nullptr, "KOR"},  {nullptr, nullptr, "ko_KR.UTF-8", "KOR"},
      {"", "", "de_DE.UTF-8@euro", "ENG"}, {"", "en_US", "ko_KR", "ENG"},
      {"ko", "en_US", "en_US", "KOR"},     {"C.UTF-8", "", "en_US", "KOR"}};
  for (const auto& [all, messages, lang, language] : kLocales) {
    Set("LC_ALL", all), Set("LC_MESSAGES", messages), Set("LANG", lang);
    EXPECT_EQ(DefaultLanguage(), language) << (lang ? lang : "no locale");
    EXPECT_EQ(DefaultCodePage(language) == CodePage::Korean(), DefaultLanguage() == "KOR");
  }
  const char* const kPlaces[][3] = {{"/data", "/home/a", "/data/halvix"},
                                    {"relative", "/home/a", "/home/a/.local/share/halvix"},
                                    {nullptr, nullptr, ""}};
  for (const auto& [dataHome, home, dir] : kPlaces) {
    Set("XDG_DATA_HOME", dataHome), Set("HOME", home);
    EXPECT_EQ(DefaultProfileDir(), dir);
  }
}

TEST(IniFileTest, AValueIsWhatFollowsTheFirstEqualsSignOfItsKey) {
  const IniFile file = IniFile::Parse(
      "\xEF\xBB\xBF; a comment\r\nLOOSE=before any section\r\n"
      "[ ONE ]\r\n  key = a = b ; c  \r\nkey=second\r\n;off=x\r\nno equals sign\r\nempty=\r\n"
      "[TWO]\n[half=x\nlast=\"quoted\"");
  EXPECT_EQ(file.Value("ONE", "KEY"), "a = b ; c");
  EXPECT_EQ(file.Value("one", "empty"), "");
  EXPECT_EQ(file.Value("TWO", "[half"), "x");
  EXPECT_EQ(file.Value("TWO", "last"), "\"quoted\"");
  EXPECT_EQ(file.Value("", "LOOSE"), "before any section");
  for (const char* none : {";off", "last"}) EXPECT_EQ(file.Value("ONE", none), std::nullopt);
}

}  // namespace
}  // namespace feedloom
