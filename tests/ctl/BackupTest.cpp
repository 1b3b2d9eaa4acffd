// Backups of a whole profile, and what comes back of them.
#include <filesystem>

#include "ctl/CtlFixture.h"

namespace feedloom {

struct Backup : CtlFixture {
  Backup() {
    server_.Protect("/a", RssDocument("Feed", {{"t", "l", "", ""}}), "bWU6cA==");  // me:p
    Run("init --code-page EUC-KR --lang KOR");
    Run("add --user me " + server_.Url("/a") + " <" + folder_.Write("typed", "p\n"));
    folder_.Write("profile/string.ini", "[FEEDLOOM]\n");
  }
  std::string Titles() const {
    std::string titles;
    const json list = RunJson("list");
    for (const json& channel : list["folders"][0]["channels"])
      titles += channel["title"].get<std::string>() + ";";
    return titles;
  }
  bool Has(const char* file) const { return std::filesystem::exists(profile_ + "/" + file); }

  const std::string file_ = folder_.File("b");
};

TEST_F(Backup, BringsDatabaseRegistryTextsAndOnlyIfAskedForPasswordsToAnyProfile) {
  for (const bool all : {true, false}) {
    EXPECT_EQ(Out("backup " + file_ + (all ? " --with-passwords" : "")), "backed up\n");
    EXPECT_EQ(std::filesystem::status(file_).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const std::string first = std::exchange(profile_, folder_.File(all ? "all" : "less"));
    Run("init --lang ENG --code-page UTF-8");
    EXPECT_EQ(Out("restore " + file_), "restored\n");
    EXPECT_EQ(Titles(), "Feedloom 시작하기;Feed;") << "in the code page of the backup";
    EXPECT_TRUE(Has("string.ini") && Has("logins.reg") == all && Has("before-restore.db"));
    EXPECT_EQ(Status("refresh --channel 1"), 0) << "in the profile's own work folder";
    EXPECT_EQ(Out("restore " + profile_ + "/before-restore.db"), "restored\n");
    EXPECT_EQ(Titles(), "Getting started with Feedloom;");
    profile_ = first;
  }
}

TEST_F(Backup, TakesThePlaceOfADamagedDatabaseAndNothingElseTakesOne) {
  Run("backup " + file_);
  const std::string whole = "Feedloom 시작하기;Feed;", half = folder_.Read("b").substr(0, 9000);
  ExpectRefused("restore /etc/passwd;restore " + profile_ + "/module/rssdb;restore " +
                    folder_.Write("half", half) + ";restore /none",
                "is no backup of a profile, or it is damaged.");
  ExpectRefused("backup /no/such/folder/b", "Cannot write the file");
  EXPECT_EQ(Titles(), whole);
  folder_.Write("profile/module/rssdb", "damaged");
  folder_.Write("profile/registry.reg", "damaged");
  EXPECT_EQ(Out("restore " + file_), "restored\n");
  EXPECT_EQ(Titles(), whole);
  std::set<std::string> kept;
  for (const auto& entry : std::filesystem::directory_iterator(profile_ + "/module"))
    if (entry.path().string().find("rssdb.damaged-") != std::string::npos)
      kept.insert(folder_.Read(std::filesystem::relative(entry.path(), folder_.Path()).string()));
  EXPECT_TRUE(kept.contains("damaged"));
}

TEST_F(Backup, IsMadeOfAProfileBeforeItsTextsAreConverted) {
  Run("import " + folder_.Write("list", OpmlDocument(NumberedFolder("똠방", 2))));
  Run("delete --channel 2");
  const std::string before = Out("list");
  EXPECT_EQ(Out("convert"), "converted\n");
  EXPECT_EQ(Out("list"), before);
  EXPECT_NE(folder_.Read("profile/module/rssdb").find("똠방"), std::string::npos);
  Run("import " + folder_.Write("list", OpmlDocument(NumberedFolder("é😀", 1))));
  EXPECT_NE(Out("list").find("é😀"), std::string::npos);
  EXPECT_EQ(Out("convert"), "its texts are in UTF-8 already\n");
  Run("restore " + profile_ + "/before-restore.db");
  EXPECT_EQ(Out("list"), before);
}

TEST_F(Backup, IsRestoredByTheNextCommandWhereThatWasInterrupted) {
  Run("backup " + file_);
  Run("delete --channel 2");
  std::filesystem::copy(file_, profile_ + "/restore.db");
  EXPECT_EQ(Titles(), "Feedloom 시작하기;Feed;");
  EXPECT_FALSE(Has("restore.db"));
}

}  // namespace feedloom
