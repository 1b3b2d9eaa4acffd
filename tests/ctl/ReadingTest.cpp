// posts, show, mark, delete, clip, cleanup, check.
#include "ctl/CtlFixture.h"
#include "platform/CodePage.h"

namespace feedloom {
namespace {

class Reading : public CtlFixture {
 protected:
  // A channel, 2, with three posts, besides the sample's, which goes.
  void Prepare(const std::string& codePage = "EUC-KR", const char* title = "하나 one") {
    Run("init --lang ENG --code-page " + codePage);
    server_.Serve("/a",
                  RssDocument("A", {{title, "l", "Tue, 10 Jun 2003 04:00:00 GMT", "<b>1</b>"},
                                    {"둘 two", "m", "Wed, 11 Jun 2003 04:00:00 GMT", "2"},
                                    {"셋 three", "n", "Thu, 12 Jun 2003 04:00:00 GMT", "3"}}));
    Add("/a");
    Run("delete --channel 1");
    Run("refresh");
    for (const json& post : RunJson("posts")) ids_.insert(ids_.begin(), post["id"].dump());
    if (ids_.size() != 3) throw std::runtime_error("not three posts");
  }
  std::string Titles(const std::string& arguments = "") const {
    std::string titles;
    for (const json& post : RunJson("posts " + arguments)) {
      titles += post["title"].get<std::string>() + ";";
    }
    return titles;
  }
  json Unread() const { return RunJson("list")["folders"][0]["unread"]; }

  const std::string all_ = "셋 three;둘 two;하나 one;";
  std::vector<std::string> ids_;  // of the posts one, two, three
};

TEST_F(Reading, PostsAreListedNewestFirstInEveryScope) {
  Prepare();
  EXPECT_EQ(Out("clip " + ids_[1] + " --cabinet 1"), "clipped\n");
  const std::map<std::string, std::vector<const char*>> scopes{
      {all_, {"", "--channel 2", "--folder 1"}},
      {"둘 two;", {"--cabinet 1", "--channel 2 --search 둘", "--folder 1 --search 둘"}},
      {"둘 two;하나 one;", {"--search O"}},
      {"", {"--cabinet 1 --search 셋", "--today", "--folder 1 --today"}}};
  for (const auto& [titles, options] : scopes) {
    for (const char* scope : options) EXPECT_EQ(Titles(scope), titles) << scope;
  }
  json post = RunJson("posts")[2];
  post.erase("id");
  EXPECT_EQ(post.dump(), R"({"channel":"A","date":"2003-06-10 04:00:00","description":"<b>1</b>",)"
                         R"("link":"l","podcast":false,"read":false,"title":"하나 one"})");
  Run("mark read --post " + ids_[0]);
  EXPECT_EQ(Out("posts --search O"), fmt::format("{:>6} * 2003-06-11 04:00:00 둘 two [A]\n"
                                                 "{:>6}   2003-06-10 04:00:00 하나 one [A]\n",
                                                 ids_[1], ids_[0]));
}

TEST_F(Reading, ShowPrintsThePageAndWritesItInItsOwnCodePage) {
  for (const auto& [codePage, title] : {std::pair("EUC-KR", "하나 one"), {"UTF-8", "é 😀 똠"}}) {
    profile_ = folder_.File(codePage);
    ids_.clear();
    Prepare(codePage, title);
    const std::string show = "show " + ids_[0];
    const std::string shown = Out(show);
    for (const char* part : {title, "<b>1</b>"}) EXPECT_NE(shown.find(part), std::string::npos);
    EXPECT_EQ(RunJson(show)["page"].get<std::string>() + "\n", shown);
    EXPECT_EQ(Status(show + " --output " + folder_.File("page.html")), 0);
    const std::string page = folder_.Read("page.html");
    EXPECT_NE(page.find(codePage[0] == 'E' ? "charset=euc-kr" : "charset=utf-8"),
              std::string::npos);
    EXPECT_EQ(CodePage::FromName(codePage).ToUtf8(page) + "\n", shown);
    EXPECT_EQ(Status(show + " --output /no/such/folder/page.html"), 1);
  }
}

TEST_F(Reading, MarkingAndDeletingReachJustWhatIsNamedAndAClippedPostStays) {
  Prepare();
  const std::tuple<std::string, std::string, int> marks[] = {
      {"mark read --post " + ids_[2] + " " + ids_[1], "marked read\n", 1},
      {"mark unread --channel 2", "marked unread\n", 3},
      {"mark read --folder 1", "marked read\n", 0}};
  for (const auto& [arguments, said, unread] : marks) {
    EXPECT_EQ(Out(arguments), said);
    EXPECT_EQ(Unread(), unread) << arguments;
  }
  EXPECT_EQ(RunJson("clip " + ids_[1] + " --cabinet 1")["done"], "clipped");
  const std::pair<std::string, std::string> deletions[] = {
      {"delete --post " + ids_[2], "둘 two;하나 one;"},
      {"cleanup 1", "둘 two;하나 one;"},
      {"cleanup 0", ""},
      {"delete --channel 2", ""}};
  for (const auto& [arguments, left] : deletions) {
    EXPECT_EQ(Status(arguments), 0);
    EXPECT_EQ(Titles(), left) << arguments;
  }
  EXPECT_EQ(Titles("--cabinet 1"), "둘 two;");
  EXPECT_EQ(RunJson("list")["cabinets"][0]["unread"], 1);
  EXPECT_EQ(RunJson("list")["folders"][0]["channels"].size(), 0u);
}

TEST_F(Reading, ACommandThatNamesNothingOrTheWrongThingChangesNothing) {
  Prepare();
  for (const char* arguments : {"",
                                "nonsense",
                                "mark read",
                                "mark maybe --post 1",
                                "mark read --post 1 --channel 1",
                                "delete",
                                "cleanup -1",
                                "cleanup many",
                                "clip 1",
                                "show",
                                "check",
                                "add",
                                "export",
                                "import",
                                "directory",
                                "init --lang GER",
                                "init --code-page X",
                                "refresh --channel 2 --folder 1",
                                "posts --channel 2 --cabinet 1",
                                "posts --folder 1 --channel 2",
                                "posts --today --search o",
                                "posts --folder 1 --cabinet 1",
                                "posts --today --channel 2",
                                "posts --today --cabinet 1",
                                "directory a --page 0"}) {
    EXPECT_EQ(Status(arguments), 2) << arguments;
  }
  ExpectRefused({{"delete --post " + ids_[0] + " 999", "there is no post 999\n"},
                 {"delete --channel 2 99", "there is no channel 99\n"},
                 {"delete --folder 99", "there is no folder 99\n"},
                 {"delete --folder 1", "folder 1 is protected\n"},
                 {"mark read --folder 99", "there is no folder 99\n"},
                 {"mark read --channel 2 99", "there is no channel 99\n"},
                 {"clip " + ids_[0] + " --cabinet 99", "there is no cabinet 99\n"},
                 {"clip 999 --cabinet 1", "there is no post 999\n"},
                 {"posts --channel 99", "there is no channel 99\n"},
                 {"posts --folder 99", "there is no folder 99\n"},
                 {"posts --cabinet 99", "there is no cabinet 99\n"},
                 {"show 999", "there is no post 999\n"}});
  EXPECT_EQ(Titles(), all_);
  EXPECT_EQ(Unread(), 3);
}

TEST_F(Reading, CheckShowsWhatTheReaderSeesOrWhyItIsNoFeed) {
  Run("init --code-page EUC-KR");
  server_.Serve("/a", RssDocument("한 ♥ 😀", {{"t", "l", "Tue, 10 Jun 2003 04:00:00 +0900", "d"}}));
  EXPECT_EQ(RunJson("check " + server_.Url("/a")).dump(),
            R"({"atomVariant":-1,"format":0,"items":[{"date":"Tue, 10 Jun 2003 04:00:00 +0900",)"
            R"("description":"d","enclosureType":"","link":"l","podcast":0,"stored":)"
            R"("2003-06-10 13:00:00","title":"t"}],"link":"http://site.example/","result":0,)"
            R"("rssVariant":2,"title":"한 ♥ ?"})");
  const std::tuple<std::string, int, const char*, const char*> cases[] = {
      {folder_.Write("opml", "<opml/>"), 0, "format", "2"},
      {folder_.Write("rss", "<rss/>"), 1, "result", "-93"},
      {folder_.Write("bad", "<rss"), 1, "result", "-98"},
      {folder_.Write("bytes", "<?xml version='1.0' encoding='EUC-KR'?><rss>\xFF\xFF</rss>"), 1,
       "format", "null"},
      {server_.Url("/absent"), 1, "result", "null"},
      {std::string(300, 'a') + ".invalid", 1, "result", "null"},
      {std::string(5000, 'a') + ".invalid", 1, "result", "null"}};
  for (const auto& [source, status, key, value] : cases) {
    const CtlResult result = Run("check " + source);
    EXPECT_EQ(result.status, status) << source;
    EXPECT_EQ(json::parse(result.out)[key].dump(), value) << source;
    EXPECT_EQ(result.err, "");
  }
  const std::string feed = folder_.Write("long.xml", NumberedRss("A", "http://a/", 500));
  for (const std::string& command : {std::string("list"), "check " + feed}) {
    EXPECT_EQ(Status(command + " >/dev/full 2>&1; (exit $?)"), 1) << command;
  }
}

}  // namespace
}  // namespace feedloom
