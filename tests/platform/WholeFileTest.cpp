#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "kit/TempFolder.h"
#include "platform/WholeFile.h"

namespace feedloom {
namespace {

class SavedFile : public testing::Test {
 protected:
  void Save(const std::string& name) {
    const Failure failure = SaveFile(folder_.File(name), "new");
    EXPECT_FALSE(failure) << *failure;
  }

  TempFolder folder_;
};

TEST_F(SavedFile, ReplacesAFileWholeAndTouchesNoOther) {
  folder_.Write("list", "a longer old text");
  folder_.Write("list.new", "the user's own");
  chmod(folder_.File("list").c_str(), 0640);
  Save("list");
  Save(std::string(255, 'n'));
  EXPECT_EQ(folder_.Read("list"), "new");
  EXPECT_EQ(folder_.Read("list.new"), "the user's own");
  EXPECT_EQ(std::filesystem::status(folder_.File("list")).permissions(),
            std::filesystem::perms{0640});
  EXPECT_EQ(folder_.Names().size(), 3u);
}

TEST_F(SavedFile, StaysAsItWasWhenTheNewOneCannotBeMade) {
  folder_.Write("list", "old");
  const std::string inTheWay = folder_.File(".feedloom-" + std::to_string(getpid()) + ".new");
  std::filesystem::create_directory(inTheWay);
  EXPECT_EQ(SaveFile(folder_.File("list"), "new"),
            "Cannot create the file '" + inTheWay + "': File exists.");
  EXPECT_EQ(folder_.Read("list"), "old");
}

TEST_F(SavedFile, ALinkStaysAndLeadsToTheNewOne) {
  folder_.Write("target", "old");
  std::filesystem::create_symlink("target", folder_.File("link"));
  std::filesystem::create_symlink(folder_.File("not there yet"), folder_.File("dangling"));
  Save("link");
  Save("dangling");
  EXPECT_EQ(folder_.Read("target"), "new");
  EXPECT_EQ(folder_.Read("not there yet"), "new");
  for (const char* link : {"link", "dangling"}) {
    EXPECT_TRUE(std::filesystem::is_symlink(folder_.File(link))) << link;
  }
}

TEST_F(SavedFile, IsWrittenToAPipeThatStaysOne) {
  const std::string pipe = folder_.File("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::string got;
  std::thread reader([&] { got = folder_.Read("pipe"); });
  Save("pipe");
  reader.join();
  EXPECT_EQ(got, "new");
  EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

}  // namespace
}  // namespace feedloom
