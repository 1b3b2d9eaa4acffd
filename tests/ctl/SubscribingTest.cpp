// init, add, list, refresh: from nothing to stored posts.
#include <atomic>
#include <filesystem>
#include <thread>

#include "ctl/CtlFixture.h"
#include "kit/FeedDocuments.h"

namespace feedloom {
namespace {

using nlohmann::json;

class Subscribing : public CtlFixture {
 protected:
  std::filesystem::path WorkDir() const { return std::filesystem::path(ProfileDir()) / "work"; }
};

TEST_F(Subscribing, ANewUserSeesPostsAtOnceAndOffline) {
  EXPECT_EQ(Run("list").status, 0);
  const json lists = RunJson("list");
  ASSERT_EQ(lists["folders"].size(), 1u);
  EXPECT_EQ(lists["folders"][0]["order"], -1);
  EXPECT_EQ(lists["folders"][0]["channels"].size(), 1u);
  EXPECT_EQ(lists["cabinets"].size(), 1u);
  const json run = RunJson("refresh");
  EXPECT_GT(run["newPosts"], 0);
  EXPECT_EQ(run["failures"], 0);
  EXPECT_EQ(RunJson("posts").size(), run["newPosts"]);
  EXPECT_EQ(RunJson("list")["folders"][0]["unread"], run["newPosts"]);
}

TEST_F(Subscribing, InitMakesAProfileOnceAndAsAsked) {
  EXPECT_EQ(Run("init --code-page UTF-8 --lang ENG").status, 0);
  EXPECT_EQ(RunJson("list")["folders"][0]["name"], "My channels");
  const std::string registry = folder_.Read("profile/registry.reg");
  const CtlResult again = Run("init");
  EXPECT_EQ(again.status, 1);
  EXPECT_NE(again.err.find("profile"), std::string::npos);
  EXPECT_EQ(folder_.Read("profile/registry.reg"), registry);
}

TEST_F(Subscribing, ADamagedProfileIsLeftAsItIs) {
  Run("init");
  folder_.Write("profile/registry.reg", "[HKEY\nbroken");
  const CtlResult result = Run("list");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.err.find("damaged"), std::string::npos);
  EXPECT_EQ(folder_.Read("profile/registry.reg"), "[HKEY\nbroken");
}

TEST_F(Subscribing, AddTakesTheFeedsTitleOrTheUsers) {
  server_.Serve("/a", NumberedRss("Feed & A", "http://a/", 1));
  server_.Serve("/b", NumberedRss("Feed B", "http://b/", 1));
  Add("/a");
  Add("/b", "--folder 새그룹 --title '나의 B'");
  const json folders = RunJson("list")["folders"];
  ASSERT_EQ(folders.size(), 2u);
  EXPECT_EQ(folders[0]["channels"][1]["title"], "Feed & A");
  EXPECT_EQ(folders[0]["channels"][1]["order"], 1);
  EXPECT_EQ(folders[1]["name"], "새그룹");
  EXPECT_EQ(folders[1]["channels"][0]["title"], "나의 B");
  EXPECT_EQ(folders[1]["channels"][0]["url"], server_.Url("/b"));
}

TEST_F(Subscribing, AddRefusesWhatIsNotANewFeed) {
  server_.Serve("/a", NumberedRss("A", "http://a/", 1));
  server_.Serve("/opml", "<opml version='1.0'/>");
  Add("/a");
  for (const std::string& address :
       {server_.Url("/a"), server_.Url("/opml"), server_.Url("/absent"), std::string("no.such")}) {
    const CtlResult result = Run("add " + address);
    EXPECT_EQ(result.status, 1) << address;
    EXPECT_FALSE(result.err.empty());
  }
  EXPECT_EQ(RunJson("list")["folders"][0]["channels"].size(), 2u);
}

TEST_F(Subscribing, RefreshTellsEachChannelAndFailsWhenOneFails) {
  server_.Serve("/a", NumberedRss("A", "http://a/", 3));
  server_.Serve("/b", NumberedRss("B", "http://b/", 1));
  const int a = Add("/a");
  const int b = Add("/b");
  EXPECT_EQ(Run("delete --channel 1").status, 0);
  server_.Fail("/b", 503);
  const CtlResult result = Run("refresh");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.out.find("A: 3 new\n"), std::string::npos);
  EXPECT_NE(result.out.find("B: download failed\n"), std::string::npos);
  EXPECT_NE(result.out.find("2 channels, 3 new posts, 1 failure,"), std::string::npos);
  EXPECT_EQ(RunJson("list")["folders"][0]["channels"][1]["state"], -2);

  server_.Serve("/b", NumberedRss("B", "http://b/", 2));
  const json run = RunJson("refresh --channel " + std::to_string(b));
  ASSERT_EQ(run["channels"].size(), 1u);
  EXPECT_EQ(run["channels"][0]["new"], 2);
  EXPECT_EQ(server_.Requests("/a"), 2);
  EXPECT_EQ(RunJson("refresh --folder 1")["newPosts"], 0);
  EXPECT_EQ(Run("refresh --channel 99").status, 1);
  EXPECT_EQ(Run("refresh --channel " + std::to_string(a) + " --folder 1").status, 2);
}

// Each may find the database locked by the other and says so then; a later refresh makes up for it.
TEST_F(Subscribing, TwoRefreshesOfOneProfileDoNotMeetInOneFile) {
  server_.Serve("/a", NumberedRss("A", "http://a/", 2));
  const std::string refresh = "refresh --channel " + std::to_string(Add("/a"));
  server_.Hang("/a");
  CtlResult results[2];
  {
    std::jthread first([&] { results[0] = Run(refresh); });
    ASSERT_TRUE(server_.WaitForRequest("/a", std::chrono::seconds(20), 2));
    std::jthread second([&] { results[1] = Run(refresh); });
    ASSERT_TRUE(server_.WaitForRequest("/a", std::chrono::seconds(20), 3));
    server_.Serve("/a", NumberedRss("A", "http://a/", 2));
  }
  for (const CtlResult& result : results) {
    EXPECT_EQ(result.out.find("A: download failed"), std::string::npos);
    EXPECT_EQ(result.out.find("A: not a feed"), std::string::npos);
  }
  EXPECT_EQ(Run(refresh).status, 0);
  EXPECT_EQ(RunJson("posts --search Post").size(), 2u);
  EXPECT_TRUE(std::filesystem::is_empty(WorkDir()));
}

TEST_F(Subscribing, AFolderThatAKilledProgramLeftIsSwept) {
  Run("init");
  std::filesystem::create_directory(WorkDir() / "feedloomctl-gone");
  EXPECT_EQ(Run("refresh").status, 0);
  EXPECT_TRUE(std::filesystem::is_empty(WorkDir()));
}

TEST_F(Subscribing, AnAddressInAnotherScriptIsFetchedAsItWasAdded) {
  server_.Serve("/%ED%95%9C%E2%82%AC%F0%9F%98%80.xml", NumberedRss("A", "http://a/", 2));
  const int channel = Add("/한€😀.xml");
  EXPECT_EQ(RunJson("refresh --channel " + std::to_string(channel))["newPosts"], 2);
}

TEST_F(Subscribing, ProgramsThatStartTogetherEachKeepTheirFolder) {
  Run("init");
  const std::string check = "check file://" + folder_.Write("a.xml", NumberedRss("A", "l", 1));
  std::atomic<int> failures = 0;
  {
    std::vector<std::jthread> starters;
    for (int i = 0; i < 6; ++i) {
      starters.emplace_back([&] {
        for (int run = 0; run < 30; ++run) failures += Run(check).status;
      });
    }
  }
  EXPECT_EQ(failures, 0);
}

}  // namespace
}  // namespace feedloom
