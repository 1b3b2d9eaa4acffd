#include <gtest/gtest.h>

#include <filesystem>

#include "store/Backup.h"
#include "store/StoreKit.h"

namespace feedloom {
namespace {

class Backup : public testing::Test {
 protected:
  void SetUp() override {
    db_.AddChannelWithPosts(1, "c", 300);
    db_.Folder().Write("rssdb.bak", "an older copy");
  }

  TestStore db_;
};

TEST_F(Backup, IsAWholeDatabaseInPlaceOfAnOlderCopy) {
  db_.Folder().Write("rssdb.bak.new", "of a program that was killed");
  EXPECT_TRUE(BackupDatabase(db_.Get()));
  std::filesystem::rename(db_.DbPath() + ".bak", db_.DbPath());
  EXPECT_EQ(db_.Value("pragma integrity_check"), "ok");
  EXPECT_EQ(db_.Count("TB_POST"), 300);
  EXPECT_EQ(db_.Folder().Names(), std::vector<std::string>{"rssdb"});
}

TEST_F(Backup, IsNotMadeOfADatabaseThatIsLockedDamagedOrEmpty) {
  const std::string bytes = db_.Folder().Read("rssdb");
  const std::string half = bytes.substr(0, bytes.size() / 2);
  for (const auto& content :
       {bytes, half + std::string(half.size(), 'Z'), half.substr(0, 9), std::string()}) {
    db_.Folder().Write("rssdb", content);
    const auto lock = content == bytes ? std::make_unique<ForeignLock>(db_.DbPath()) : nullptr;
    EXPECT_FALSE(BackupDatabase(db_.Get()));
    EXPECT_EQ(db_.Folder().Read("rssdb.bak"), "an older copy");
    EXPECT_EQ(db_.Folder().Names(), (std::vector<std::string>{"rssdb", "rssdb.bak"}));
    EXPECT_TRUE(db_.Reports().empty());
  }
}

}  // namespace
}  // namespace feedloom
