// init, add, list, refresh, import and export: from nothing to stored posts.
#include <thread>

#include "ctl/CtlFixture.h"
#include "exchange/ListDocuments.h"
#include "platform/Text.h"

namespace feedloom {
namespace {

class Subscribing : public CtlFixture {
 protected:
  void Serve(const std::string& path, int posts) {
    server_.Serve(path, NumberedRss("Feed &" + path, "http://a" + path, posts));
  }
};

TEST_F(Subscribing, ANewUserSeesPostsAtOnceAndOfflineAndADamagedProfileIsLeftAlone) {
  const std::string file = "profile/registry.reg";
  const CtlResult first = Run("list");
  EXPECT_EQ(first.status, 0);
  EXPECT_EQ(first.err, "feedloomctl: made a new profile in " + profile_ + "\n");
  const json run = RunJson("refresh");
  EXPECT_GT(run["newPosts"], 0);
  EXPECT_EQ(RunJson("posts").size(), run["newPosts"]);
  EXPECT_EQ(RunJson("list")["folders"][0]["unread"], run["newPosts"]);
  const std::string registry = folder_.Read(file);
  ExpectRefused({{"init", "profile"}});
  EXPECT_EQ(folder_.Read(file), registry);
  folder_.Write(file, "[HKEY\nbroken");
  ExpectRefused({{"list", folder_.File(file) + " is damaged; nothing was changed\n"}});
  EXPECT_EQ(folder_.Read(file), "[HKEY\nbroken");
}

TEST_F(Subscribing, AddTakesTheFeedsTitleOrTheUsersAndListShowsFoldersWithTheirChannels) {
  EXPECT_EQ(Out("init --lang eng --code-page utf-8"), "Made a profile in " + profile_ + "\n");
  Serve("/a", 1);
  Serve("/%ED%95%9C%E2%82%AC%F0%9F%98%80.xml", 1);
  EXPECT_EQ(Out("add " + server_.Url("/a")), "Added channel 2: Feed &/a\n");
  EXPECT_EQ(Add("/한€😀.xml", "--folder 새그룹 --title '나의\nB'"), "3");
  EXPECT_EQ(Add("/a", "--folder 새그룹"), "4");
  Run("delete --channel 1");
  EXPECT_EQ(RunJson("refresh")["newPosts"], 3);
  EXPECT_EQ(ReplaceAll(Out("list"), server_.Url(""), ""),
            "folder 1: My channels (1 unread)\n  channel 2: Feed &/a (1 unread, ok) /a\n"
            "folder 2: 새그룹 (2 unread)\n  channel 3: 나의 B (1 unread, ok) "
            "/%ED%95%9C%E2%82%AC%F0%9F%98%80.xml\n  channel 4: Feed &/a (1 unread, ok) /a\n"
            "cabinet 1: My cabinet (0 unread)\n");
  const json lists = RunJson("list");
  EXPECT_EQ(lists["folders"][0]["order"], -1);
  EXPECT_EQ(ReplaceAll(lists["folders"][1]["channels"][1].dump(), server_.Url(""), ""),
            R"({"id":4,"order":2,"state":0,"title":"Feed &/a","unread":1,"url":"/a"})");
  EXPECT_EQ(lists["folders"][1]["order"], 0);
  EXPECT_EQ(lists["cabinets"].dump(), R"([{"id":1,"order":0,"title":"My cabinet","unread":0}])");
  EXPECT_EQ(Out("delete --folder 2"), "deleted\n");  // the first one that a user adds
  EXPECT_EQ(RunJson("list")["folders"].size(), 1u);
  EXPECT_EQ(RunJson("posts").size(), 1u);
  server_.Serve("/opml", "<opml version='1.0'/>");
  ExpectRefused({{"add " + server_.Url("/a"), " is channel 2 of that folder already"},
                 {"add " + server_.Url("/opml"), ": this is not a feed"},
                 {"add " + server_.Url("/absent"), "404"},
                 {"add no.such", "http://no.such"},
                 {"add " + std::string(5000, 'a') + ".invalid", ""}});
  EXPECT_EQ(RunJson("list")["folders"][0]["channels"].size(), 1u);
}

TEST_F(Subscribing, RefreshTellsEachChannelAndFailsWhenOneFails) {
  Serve("/a", 3);
  Serve("/b", 1);
  Add("/a");
  const std::string b = Add("/b", "--folder B");
  Run("delete --channel 1");
  server_.Fail("/b", 503);
  const CtlResult result = Run("refresh");
  EXPECT_EQ(result.status, 1);
  for (const char* line : {"Feed &/a: 3 new\n", "Feed &/b: download failed\n",
                           "\n2 channels, 3 new posts, 1 failure, "}) {
    EXPECT_NE(result.out.find(line), std::string::npos) << result.out;
  }
  EXPECT_EQ(RunJson("list")["folders"][1]["channels"][0]["state"], -2);
  Serve("/b", 2);
  const json run = RunJson("refresh --channel " + b);
  EXPECT_EQ(run["channels"].dump(),
            R"([{"id":)" + b + R"(,"new":2,"result":"ok","title":"Feed &/b"}])");
  EXPECT_EQ(run["failures"], 0);
  EXPECT_EQ(RunJson("refresh --folder 1")["newPosts"], 0);
  ExpectRefused({{"refresh --channel 99", "no channel 99"}, {"refresh --folder 99", "no folder"}});
  EXPECT_EQ(server_.Requests("/a"), 3);
  EXPECT_EQ(server_.Requests("/b"), 3);
}

// One may find the database locked by another, and says so; a later refresh makes up for it.
TEST_F(Subscribing, ProgramsOfOneProfileKeepOutOfEachOthersWorkFolders) {
  Serve("/a", 2);
  const std::string refresh = "refresh --channel " + Add("/a");
  const std::string check = "check file://" + folder_.Write("a.xml", NumberedRss("A", "l", 1));
  std::filesystem::create_directory(profile_ + "/work/feedloomctl-gone");  // a killed one's
  server_.Hang("/a");
  std::string words;
  std::atomic<int> failures = 0;
  {
    std::jthread refreshing([&] { words = Out(refresh); });
    ASSERT_TRUE(server_.WaitForRequest("/a", std::chrono::seconds(20), 2));
    std::vector<std::jthread> others;
    for (int i = 0; i < 6; ++i) {
      others.emplace_back([&] {
        for (int run = 0; run < 20; ++run) failures += Status(check);
      });
    }
    others.clear();
    Serve("/a", 2);
  }
  EXPECT_EQ(failures, 0);
  EXPECT_TRUE(words.starts_with("Feed &/a: 2 new\n")) << words;
  EXPECT_TRUE(std::filesystem::is_empty(profile_ + "/work"));
}

TEST_F(Subscribing, ListsAreImportedFromFilesAndAddressesAndExportedAgain) {
  Run("init --lang ENG");
  const std::string outline = FeedOutline("a &amp; b", "http://a/?x&amp;y");
  const std::string list = OpmlDocument("<outline text='News'>" + outline +
                                        FeedOutline("script", "javascript:x") + "</outline>");
  EXPECT_EQ(RunJson("import " + folder_.Write("mine.opml", list)).dump(),
            R"({"added":1,"folders":1,"leftOut":1,"present":0})");
  server_.Serve("/lists/web.opml", OpmlDocument(FeedOutline("c", "http://c/")));
  EXPECT_EQ(Out("import " + server_.Url("/lists/web.opml")),
            "Added 1 channels and 1 folders; 0 were there already, 0 left out\n");
  EXPECT_EQ(Out("export " + folder_.File("out.opml")), "Wrote 3 channels of 3 folders\n");
  EXPECT_EQ(RunJson("export " + folder_.File("out.opml"))["channels"], 3);
  EXPECT_NE(folder_.Read("out.opml")
                .find("text=\"News\"><outline type=\"rss\" text=\"a &amp; b\" "
                      "title=\"a &amp; b\" xmlUrl=\"http://a/?x&amp;y\"/>"),
            std::string::npos);
  const std::string bad = folder_.Write("bad.opml", OpmlDocument("<outline text='A'>"));
  ExpectRefused({{"import " + bad, bad + ": it cannot be read, or is not well-formed XML\n"},
                 {"import absent.opml", "absent.opml: No such file or directory"},
                 {"import " + server_.Url("/absent"), "404"},
                 {"export " + folder_.File("absent/out.opml"), "No such file or directory"}});
  EXPECT_EQ(RunJson("list")["folders"].size(), 3u);
}

}  // namespace
}  // namespace feedloom
