#include <gtest/gtest.h>

#include <filesystem>

#include "store/Backup.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

class Backup : public testing::Test {
 protected:
  TestStore db_;
};

TEST_F(Backup, IsAWholeDatabaseAndReplacesTheOlderCopy) {
  db_.Folder().Write("rssdb.bak", "an older copy");
  db_.AddChannelWithPosts(1, "c", 3);
  EXPECT_TRUE(BackupDatabase(db_.Get()));
  std::filesystem::rename(db_.DbPath() + ".bak", db_.DbPath());
  EXPECT_EQ(db_.Value("pragma integrity_check"), "ok");
  EXPECT_EQ(db_.Count("TB_POST"), 3);
  EXPECT_EQ(db_.Folder().Names(), std::vector<std::string>{"rssdb"});
}

TEST_F(Backup, KeepsTheOlderCopyWhenTheDatabaseIsGoneEmptyOrDamaged) {
  db_.Folder().Write("rssdb.bak", "an older copy");
  std::filesystem::remove(db_.DbPath());
  EXPECT_FALSE(BackupDatabase(db_.Get()));
  EXPECT_EQ(db_.Folder().Names(), std::vector<std::string>{"rssdb.bak"});
  for (const char* content :
       {"", "this is no database at all, but it is long enough for a header"}) {
    db_.Folder().Write("rssdb", content);
    EXPECT_FALSE(BackupDatabase(db_.Get()));
  }
  EXPECT_EQ(db_.Folder().Read("rssdb.bak"), "an older copy");
  EXPECT_EQ(db_.Folder().Names(), (std::vector<std::string>{"rssdb", "rssdb.bak"}));
  EXPECT_EQ(db_.Reports(), std::vector<std::string>());
}

TEST_F(Backup, KeepsTheOlderCopyWhenPagesInTheMiddleAreDamaged) {
  db_.AddChannelWithPosts(1, "c", 300);
  db_.Folder().Write("rssdb.bak", "an older copy");
  std::string bytes = db_.Folder().Read("rssdb");
  bytes.replace(bytes.size() / 2, 8192, 8192, '\x5A');
  db_.Folder().Write("rssdb", bytes);
  EXPECT_FALSE(BackupDatabase(db_.Get()));
  EXPECT_EQ(db_.Folder().Read("rssdb.bak"), "an older copy");
}

TEST_F(Backup, IsNotTakenWhileAnotherProgramWrites) {
  db_.Folder().Write("rssdb.bak", "an older copy");
  {
    const ForeignLock lock(db_.DbPath());
    EXPECT_FALSE(BackupDatabase(db_.Get()));
  }
  EXPECT_EQ(db_.Folder().Read("rssdb.bak"), "an older copy");
  EXPECT_TRUE(BackupDatabase(db_.Get()));
}

}  // namespace
}  // namespace feedloom
