// posts, show, mark, delete, clip, cleanup, check.
#include "ctl/CtlFixture.h"
#include "kit/FeedDocuments.h"
#include "platform/CodePage.h"

namespace feedloom {
namespace {

using nlohmann::json;

class Reading : public CtlFixture {
 protected:
  // One channel with three posts, besides the sample's, which goes.
  void Prepare(const std::string& document) {
    server_.Serve("/a", document);
    channel_ = std::to_string(Add("/a"));
    Run("delete --channel 1");
    Run("refresh");
  }
  void PrepareThree() {
    Prepare(
        RssDocument("A", {{"하나 one", "http://a/1", "Tue, 10 Jun 2003 04:00:00 GMT", "<b>1</b>"},
                          {"둘 two", "http://a/2", "Wed, 11 Jun 2003 04:00:00 GMT", "2"},
                          {"셋 three", "http://a/3", "Thu, 12 Jun 2003 04:00:00 GMT", "3"}}));
  }

  std::string Titles(const std::string& arguments) {
    std::string titles;
    for (const json& post : RunJson("posts " + arguments)) {
      titles += post["title"].get<std::string>() + ";";
    }
    return titles;
  }

  std::string Id(int index) {
    return RunJson("posts")[static_cast<std::size_t>(index)]["id"].dump();
  }

  std::string channel_;
};

TEST_F(Reading, PostsAreListedNewestFirstInEveryScope) {
  PrepareThree();
  EXPECT_EQ(Titles(""), "셋 three;둘 two;하나 one;");
  EXPECT_EQ(Titles("--channel " + channel_), "셋 three;둘 two;하나 one;");
  EXPECT_EQ(Titles("--folder 1 --search 둘"), "둘 two;");
  EXPECT_EQ(Titles("--search O"), "둘 two;하나 one;");
  EXPECT_EQ(Titles("--today"), "");
  EXPECT_EQ(Titles("--cabinet 1"), "");
  const json post = RunJson("posts")[2];
  EXPECT_EQ(post["date"], "2003-06-10 04:00:00");
  EXPECT_EQ(post["channel"], "A");
  EXPECT_EQ(post["read"], false);
  EXPECT_EQ(Run("posts --channel 99").status, 1);
  EXPECT_EQ(Run("posts --channel 1 --cabinet 1").status, 2);
}

TEST_F(Reading, ShowPrintsThePageAndWritesItInItsOwnCodePage) {
  PrepareThree();
  const CtlResult shown = Run("show " + Id(2));
  EXPECT_EQ(shown.status, 0);
  EXPECT_NE(shown.out.find("하나 one"), std::string::npos);
  EXPECT_NE(shown.out.find("<b>1</b>"), std::string::npos);
  EXPECT_EQ(Run("show " + Id(2) + " --output " + folder_.File("page.html")).status, 0);
  const std::string page = folder_.Read("page.html");
  EXPECT_NE(page.find("charset=euc-kr"), std::string::npos);
  EXPECT_EQ(CodePage::Korean().ToUtf8(page) + "\n", shown.out);
  EXPECT_EQ(Run("show 999").status, 1);
  EXPECT_EQ(Run("show " + Id(2) + " --output /no/such/folder/page.html").status, 1);
}

TEST_F(Reading, AUtf8ProfileLosesNoCharacter) {
  Run("init --code-page UTF-8");
  Prepare(RssDocument("😀", {{"é 😀 똠", "http://a/1", "", "d"}}));
  EXPECT_EQ(Titles(""), "é 😀 똠;");
  EXPECT_NE(Run("show " + Id(0)).out.find("charset=utf-8"), std::string::npos);
}

TEST_F(Reading, MarkingAndDeletingReachJustWhatIsNamed) {
  PrepareThree();
  const auto unread = [&] { return RunJson("list")["folders"][0]["unread"].get<int>(); };
  EXPECT_EQ(Run("mark read --post " + Id(0) + " " + Id(1)).status, 0);
  EXPECT_EQ(unread(), 1);
  EXPECT_EQ(Run("mark unread --channel " + channel_).status, 0);
  EXPECT_EQ(unread(), 3);
  EXPECT_EQ(Run("mark read --folder 1").status, 0);
  EXPECT_EQ(unread(), 0);
  EXPECT_EQ(Run("delete --post " + Id(0)).status, 0);
  EXPECT_EQ(Titles(""), "둘 two;하나 one;");
  EXPECT_EQ(Run("cleanup 1").status, 0);
  EXPECT_EQ(Titles(""), "둘 two;하나 one;");
  EXPECT_EQ(Run("cleanup 0").status, 0);
  EXPECT_EQ(Titles(""), "");
}

TEST_F(Reading, ACommandThatNamesNothingOrTheWrongThingChangesNothing) {
  PrepareThree();
  for (const char* arguments :
       {"mark read", "delete", "mark maybe --post 1", "cleanup -1", "clip 1",
        "mark read --post 1 --channel 1", "cleanup many", "", "nonsense"}) {
    EXPECT_EQ(Run(arguments).status, 2) << arguments;
  }
  for (const std::string& arguments :
       {"delete --post " + Id(0) + " 999", std::string("delete --channel 99"),
        std::string("delete --folder 1"), std::string("mark read --folder 99")}) {
    EXPECT_EQ(Run(arguments).status, 1) << arguments;
  }
  EXPECT_EQ(Titles(""), "셋 three;둘 two;하나 one;");
}

TEST_F(Reading, AClippedPostOutlivesItsChannel) {
  PrepareThree();
  EXPECT_EQ(Run("clip " + Id(1) + " --cabinet 99").status, 1);
  EXPECT_EQ(Run("clip " + Id(1) + " --cabinet 1").status, 0);
  EXPECT_EQ(Run("delete --channel " + channel_).status, 0);
  EXPECT_EQ(Titles("--cabinet 1"), "둘 two;");
  EXPECT_EQ(Titles("--cabinet 1 --search 둘"), "둘 two;");
  EXPECT_EQ(RunJson("list")["cabinets"][0]["unread"], 1);
}

TEST_F(Reading, CheckShowsWhatTheReaderSees) {
  server_.Serve("/a", RssDocument("한 ♥ 😀", {{"t", "l", "Tue, 10 Jun 2003 04:00:00 +0900", "d"}}));
  const json feed = RunJson("check " + server_.Url("/a"));
  EXPECT_EQ(feed["result"], 0);
  EXPECT_EQ(feed["format"], 0);
  EXPECT_EQ(feed["rssVariant"], 2);
  EXPECT_EQ(feed["atomVariant"], -1);
  EXPECT_EQ(feed["title"], "한 ♥ ?");
  EXPECT_EQ(feed["items"], json::parse(R"([{"title": "t", "link": "l",
      "date": "Tue, 10 Jun 2003 04:00:00 +0900", "stored": "2003-06-10 13:00:00",
      "podcast": 0, "enclosureType": "", "description": "d"}])"));
}

TEST_F(Reading, CheckTellsWhyADocumentIsNoFeed) {
  const auto check = [&](const std::string& source, int status) {
    const CtlResult result = Run("check " + source);
    EXPECT_EQ(result.status, status) << source;
    return json::parse(result.out);
  };
  EXPECT_EQ(check(folder_.Write("opml.xml", "<opml/>"), 0)["format"], 2);
  EXPECT_EQ(check(folder_.Write("rss.xml", "<rss/>"), 1)["result"], -93);
  EXPECT_EQ(check(folder_.Write("bad.xml", "<rss"), 1)["result"], -98);
  const json absent = check(server_.Url("/absent"), 1);
  EXPECT_TRUE(absent["result"].is_null());
  EXPECT_NE(absent["error"].get<std::string>().find("404"), std::string::npos);
}

TEST_F(Reading, CheckSurvivesNamesThatNoFileCanHave) {
  for (const std::size_t length : {300u, 5000u}) {
    const CtlResult result = Run("check " + std::string(length, 'a') + ".invalid");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(json::parse(result.out)["result"].is_null());
    EXPECT_EQ(Run("add " + std::string(length, 'a') + ".invalid").status, 1);
  }
}

TEST_F(Reading, ADocumentThatCannotBeReadLeavesNoNoiseOnStderr) {
  Run("init");
  const CtlResult result = Run("check " + folder_.Write("bytes.xml",
                                                        "<?xml version='1.0' encoding='EUC-KR'?>"
                                                        "<rss version='2.0'>\xFF\xFF</rss>"));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.err, "");
}

TEST_F(Reading, AResultThatCannotBeWrittenIsAFailure) {
  Run("init");
  for (const std::string& command :
       {std::string("list"),
        "check " + folder_.Write("long.xml", NumberedRss("A", "http://a/", 500))}) {
    EXPECT_EQ(Run(command + " >/dev/full 2>&1; (exit $?)").status, 1) << command;
  }
}

}  // namespace
}  // namespace feedloom
