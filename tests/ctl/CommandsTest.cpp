// All commands but directory: from nothing to stored posts, and what is done with them.
#include <future>

#include "ctl/CtlFixture.h"
#include "files/Registry.h"
#include "files/RegistryKeys.h"
#include "kit/Rows.h"
#include "text/CodePage.h"

namespace feedloom {

struct Commands : CtlFixture {
  void Serve(const std::string& path, int posts) {
    server_.Serve(path, NumberedRss("Feed &" + path, "http://a" + path, posts));
  }
  // A channel, 2, with posts 1 to 3, besides the sample's, which goes.
  void Prepare(const std::string& codePage = "EUC-KR", const char* title = "하나 one") {
    Run("init --lang ENG --code-page " + codePage);
    server_.Serve("/a", RssDocument("A", {{title, "l", "Tue, 10 Jun 2003 04:00:00 GMT", "<b>1</b>"},
                                          {"둘 two", "m", "Wed, 11 Jun 2003 04:00:00 GMT", "2"},
                                          {"셋", "n", "Thu, 12 Jun 2003 04:00:00 GMT", "3"}}));
    Run("add " + server_.Url("/a"));
    Run("delete --channel 1");
    Run("refresh");
  }
  std::string Ids(const std::string& scope = "") const {
    std::string ids;
    for (const json& post : RunJson("posts " + scope)) ids += post["id"].dump();
    return ids;
  }
};

TEST_F(Commands, ANewUserSeesPostsAtOnceAndOfflineAndADamagedProfileIsLeftAlone) {
  const std::string file = "profile/registry.reg";
  EXPECT_EQ(Run("list").err, "feedloomctl: made a new profile in " + profile_ + "\n");
  const json run = RunJson("refresh");
  EXPECT_GT(run["newPosts"], 0);
  EXPECT_EQ(RunJson("posts").size(), run["newPosts"]);
  ExpectRefused("init", "profile");
  folder_.Write(file, "[HKEY\nbroken");
  ExpectRefused("list", folder_.File(file) + " is damaged; nothing was changed\n");
  EXPECT_EQ(folder_.Read(file), "[HKEY\nbroken");
}

TEST_F(Commands, AddTakesTheFeedsTitleOrTheUsersAndListShowsFoldersWithTheirChannels) {
  EXPECT_EQ(Out("init --lang eng --code-page utf-8"), "Made a profile in " + profile_ + "\n");
  Serve("/a", 1);
  Serve("/%ED%95%9C%E2%82%AC%F0%9F%98%80.xml", 1);
  EXPECT_EQ(Out("add " + server_.Url("/a")), "Added channel 2: Feed &/a\n");
  Run("add " + server_.Url("/한€😀.xml") + " --folder 새그룹 --title '나의\nB'");
  EXPECT_EQ(RunJson("add --folder 새그룹 " + server_.Url("/a"))["id"], 4);
  Run("delete --channel 1");
  EXPECT_EQ(RunJson("refresh")["newPosts"], 3);
  EXPECT_EQ(ReplaceAll(Out("list"), server_.Url(""), ""),
            "folder 1: My channels (1 unread)\n  channel 2: Feed &/a (1 unread, ok) /a\n"
            "folder 2: 새그룹 (2 unread)\n  channel 3: 나의 B (1 unread, ok) "
            "/%ED%95%9C%E2%82%AC%F0%9F%98%80.xml\n  channel 4: Feed &/a (1 unread, ok) /a\n"
            "cabinet 1: My cabinet (0 unread)\n");
  Run("delete --channel 3");
  json folder = RunJson("list")["folders"][1];
  EXPECT_EQ(folder["channels"][0].value("lastTry", "").substr(0, 2), "20");
  for (const char* time : {"lastTry", "lastSuccess"}) folder["channels"][0].erase(time);
  EXPECT_EQ(ReplaceAll(folder.dump(), server_.Url(""), ""),
            R"({"channels":[{"dead":false,"fault":null,"id":4,"movedTo":null,"order":2,"state":0,)"
            R"("title":"Feed &/a","unread":1,"url":"/a"}],"id":2,"name":"새그룹","order":0,)"
            R"("unread":1})");
  EXPECT_EQ(Out("delete --folder 2"), "deleted\n");  // the first one that a user adds
  EXPECT_EQ(RunJson("posts").size(), 1u);
  server_.Serve("/opml", "<opml version='1.0'/>");
  ExpectRefused("add " + server_.Url("/a"), " is channel 2 of that folder already");
  ExpectRefused("add " + server_.Url("/opml"), ": an OPML list, not a feed");
  ExpectRefused("add no.such", "http://no.such");
  EXPECT_EQ(RunJson("list")["folders"].size(), 1u);
}

TEST_F(Commands, RefreshTellsEachChannelAndFailsWhenOneFails) {
  Serve("/a", 3);
  Serve("/b", 1);
  Run("add " + server_.Url("/a"));
  Run("add --folder B " + server_.Url("/b"));
  Run("delete --channel 1");
  server_.Fail("/b", 410);
  const CtlResult result = Run("refresh");
  EXPECT_EQ(result.status, 1);
  for (const char* line : {"Feed &/a: 3 new\n", "Feed &/b: HTTP status 410\n",
                           "\n2 channels, 3 new posts, 1 failure, "}) {
    EXPECT_NE(result.out.find(line), std::string::npos) << result.out;
  }
  EXPECT_NE(Out("list").find("(0 unread, dead: HTTP status 410)"), std::string::npos);
  const json failed = RunJson("list")["folders"][1]["channels"][0];
  EXPECT_TRUE(failed["state"] == -2 && failed["dead"] == true && failed["lastSuccess"] == nullptr);
  EXPECT_EQ(failed["fault"].dump(),
            R"({"kind":"http-status","status":410,"text":"HTTP status 410"})");
  EXPECT_EQ(json::parse(Out("--json refresh --channel 3"))["channels"][0]["fault"],
            failed["fault"]);
  Serve("/c", 2);
  server_.Redirect("/b", server_.Url("/c"), 301);
  const json run = RunJson("refresh --channel 3");
  EXPECT_EQ(run["channels"].dump(),
            R"([{"id":3,"new":2,"notStored":0,"result":"ok","title":"Feed &/b"}])");
  EXPECT_EQ(RunJson("refresh --folder 1")["newPosts"], 0);
  EXPECT_EQ(server_.Requests("/b"), 4);
  EXPECT_EQ(RunJson("list")["folders"][1]["channels"][0]["movedTo"], server_.Url("/c"));
}

TEST_F(Commands, ARefreshTellsATerminalHowFarItIs) {
  Run("init --lang ENG");
  const auto shown = [this](const char* terminal, const char* options) {
    const std::string command =
        fmt::format("script -qec 'TERM={} {} --profile {} {} refresh >/dev/null' /dev/null >{}",
                    terminal, FEEDLOOMCTL, profile_, options, folder_.File("shown"));
    EXPECT_EQ(std::system((command + " </dev/null").c_str()), 0);
    return folder_.Read("shown");
  };
  EXPECT_EQ(shown("xterm", ""), "\x1b[K0 of 1\r\x1b[K\r\x1b[K1 of 1\r\x1b[K\r");
  EXPECT_EQ(shown("dumb", "") + shown("xterm", "--json") + Run("refresh").err, "");
}

TEST_F(Commands, APageAddsTheFirstFeedThatItAnnouncesAndNamesTheOthers) {
  const std::string page = server_.Url("/page");
  const auto link = [](const char* feed) {
    return fmt::format("<link rel='alternate' type='application/rss+xml' href='{}'>", feed);
  };
  server_.Serve("/page", "<html>" + link("/a") + link("/b"));
  server_.Serve("/other", "<html>" + link("/page"));
  Serve("/a", 1);
  const CtlResult added = Run("--json add " + page);
  EXPECT_EQ(json::parse(added.out)["address"], server_.Url("/a"));
  EXPECT_EQ(added.err.substr(added.err.find("feedloomctl: http")),
            "feedloomctl: " + page + " also has the feed " + server_.Url("/b") + "\n");
  ExpectRefused("add " + server_.Url("/other"), page + ": a web page, not a feed\n");
}

TEST_F(Commands, ALoginIsAskedForKeptOnceItIsRightAndNeverShown) {
  const std::string url = server_.Url("/a"), at = " --user me " + url;
  server_.Protect("/a", RssDocument("", {}), "bWU6cCB3");  // me:p w
  server_.Redirect("/b", url);
  Run("init --lang ENG");
  Run("delete --channel 1");
  ExpectRefused("add " + url, "the server wants a name and a password");
  EXPECT_NE(Out("check " + url).find("the server wants a name and a password"), std::string::npos);
  const auto type = [this](const std::string& line, const std::string& arguments) {
    return Run(arguments + " <" + folder_.Write("typed", line + "\n"));
  };
  EXPECT_EQ(type("wrong", "add" + at).err, "feedloomctl: " + url +
                                               ": the server refuses the name and the password (" +
                                               server_.Url("") + ")\n");
  EXPECT_EQ(Run("add" + at + " </dev/null").err, "feedloomctl: no password on standard input\n");
  EXPECT_EQ(Run("add --user me /etc/hostname </dev/null").status, 1);
  EXPECT_NE(type("wrong", "check" + at).out.find("refuses the name"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(profile_ + "/logins.reg"));
  EXPECT_EQ(type("p w", "check" + at).status, 0);
  EXPECT_EQ(type("p w", "add" + at).out, "Added channel 1: " + url + "\n");
  EXPECT_EQ(type("p w", "add" + at).out,
            "Channel 1 was there; kept its name and password for " + server_.Url("") + "\n");
  EXPECT_EQ(RunJson("add " + server_.Url("/b"))["id"], 2);
  EXPECT_EQ(Out("add http://you:secret@" + url.substr(7)), "Added channel 3: " + url + "\n");
  EXPECT_EQ(Status("refresh"), 0);
  folder_.Write("profile/logins.reg", "");
  const std::string failed = Out("refresh");
  EXPECT_NE(failed.find("/b: the server wants a name and a password\n"), std::string::npos);
  EXPECT_EQ(failed.find("secret"), std::string::npos);
  EXPECT_EQ(RunJson("list")["folders"][0]["channels"][0]["state"], -4);
}

TEST_F(Commands, ProgramsOfOneProfileMakeItOnceAndKeepOutOfEachOthersWorkFolders) {
  std::vector<std::future<int>> atOnce;
  for (int i = 0; i < 6; ++i)
    atOnce.push_back(std::async(std::launch::async, [&] { return Status("list"); }));
  for (auto& status : atOnce) EXPECT_EQ(status.get(), 0) << "one of them makes the profile";
  Serve("/a", 2);
  Run("add " + server_.Url("/a"));
  const std::string check = "check file://" + folder_.Write("a.xml", NumberedRss("A", "l", 1));
  std::filesystem::create_directory(profile_ + "/work/feedloomctl-gone");  // a killed one's
  server_.Hang("/a");
  auto words = std::async(std::launch::async, [&] { return Out("refresh --channel 2"); });
  ASSERT_TRUE(server_.WaitForRequest("/a", std::chrono::seconds(20), 2));
  EXPECT_EQ(Status(check), 0);
  Serve("/a", 2);
  EXPECT_TRUE(words.get().starts_with("Feed &/a: 2 new\n"));
  std::filesystem::remove(profile_ + "/work/feed_memory");
  EXPECT_TRUE(std::filesystem::is_empty(profile_ + "/work"));
}

TEST_F(Commands, ListsAreImportedFromFilesAndAddressesAndExportedAgain) {
  Run("init --lang ENG");
  const std::string outlines =
      FeedOutline("a &amp; &quot;b", "http://a/?x&amp;y") + FeedOutline("script", "javascript:x");
  const std::string list = OpmlDocument("<outline text='News'>" + outlines + "</outline>");
  EXPECT_EQ(RunJson("import " + folder_.Write("mine.opml", list)).dump(),
            R"({"added":1,"folders":1,"leftOut":1,"named":[{"name":"script","reason":"its address )"
            R"(is not of the web"}],"present":0})");
  server_.Serve("/lists/web.opml", OpmlDocument(FeedOutline("c", "http://c/")));
  EXPECT_EQ(Out("import " + server_.Url("/lists/web.opml")),
            "Added 1 channel and 1 folder; 0 there already, 0 left out\n");
  EXPECT_EQ(Out("export " + folder_.File("out")), "Wrote 2 channels of 3 folders\n");
  EXPECT_NE(folder_.Read("out").find("xmlUrl=\"http://a/?x&amp;y\"/>"), std::string::npos);
  EXPECT_EQ(Out("export - | tail -c +155"), folder_.Read("out").substr(154));
  const std::string more = "import - <" + folder_.File("mine.opml");
  EXPECT_EQ(Out(more),
            "Added 0 channels and 0 folders; 1 there already, 1 left out:\n"
            "  script: its address is not of the web\n");
  EXPECT_EQ(RunJson("import --doubles " + folder_.File("out"))["added"], 2);
  Run("delete --folder 4 5 6");
  EXPECT_TRUE(Registry(profile_ + "/registry.reg").WriteString(kHostKey, kValueLenient, ""));
  const CtlResult unreadable = Run("export " + folder_.File("out"));
  EXPECT_EQ(unreadable.status, 1);
  EXPECT_EQ(unreadable.err, "feedloomctl: " + folder_.File("out") +
                                " was written, but cannot be read again; names that XML does not "
                                "allow: 1: a & \"b\n");
  EXPECT_EQ(RunJson(more)["added"], 1) << "again";
  ExpectRefused("import a.opml;import /no/in;export /no/out", "No such file or directory");
  EXPECT_EQ(RunJson("list")["folders"].size(), 4u);
}

TEST_F(Commands, PostsAreListedNewestFirstInEveryScope) {
  Prepare();
  EXPECT_EQ(Out("clip 2 --cabinet 1"), "clipped\n");
  const std::map<std::string, std::vector<const char*>> scopes{
      {"321", {"", "--channel 2", "--folder 1"}},
      {"32", {"--since 2003-06-11", "--limit 2", "--folder 1 --limit 2 --since 2003-06-10"}},
      {"21", {"--search O"}},
      {"2", {"--channel 2 --search 둘", "--folder 1 --search 둘"}},
      {"1", {"--cabinet 1", "--cabinet 1 --search two"}},
      {"", {"--cabinet 1 --search 셋", "--today", "--folder 1 --today", "--since 7d"}}};
  for (const auto& [ids, options] : scopes)
    for (const char* scope : options) EXPECT_EQ(Ids(scope), ids) << scope;
  EXPECT_EQ(ReplaceAll(RunJson("posts")[2].dump(), server_.Url("/"), ""),
            R"({"channel":"A","date":"2003-06-10 04:00:00","description":"<b>1</b>","id":1,)"
            R"("link":"l","podcast":false,"read":false,"saved":false,"title":"하나 one"})");
  Run("mark read --post 1");
  EXPECT_EQ(Out("posts --search O"),
            "     2 * 2003-06-11 04:00:00 둘 two [A]\n     1   2003-06-10 04:00:00 하나 one [A]\n");
  EXPECT_EQ(Ids("--unread") + Ids("--unread --since 36500d --limit 9"), "3232");
  ExpectRefused("posts --since 2003-6;posts --since 1w;posts --since d;posts --since 99999d",
                "neither a day", 2);
}

TEST_F(Commands, ShowPrintsThePageAndWritesItInItsOwnCodePage) {
  for (const auto& [codePage, title] : {std::pair("EUC-KR", "하나 one"), {"UTF-8", "é 😀 똠"}}) {
    profile_ = folder_.File(codePage);
    Prepare(codePage, title);
    const std::string shown = Out("show 1");
    EXPECT_NE(shown.find(title), std::string::npos) << shown;
    EXPECT_NE(shown.find("title=\"2003-06-10"), std::string::npos) << "its date is in sight";
    EXPECT_EQ(RunJson("show 1")["page"].get<std::string>() + "\n", shown);
    EXPECT_EQ(Status("show 1 --output " + folder_.File("page.html")), 0);
    EXPECT_EQ(CodePage::FromName(codePage).ToUtf8(folder_.Read("page.html")) + "\n", shown);
    EXPECT_EQ(Status("show 1 --output /no/such/folder/page.html"), 1);
  }
}

TEST_F(Commands, ChangeJustWhatTheyNameAndAClippedPostStays) {
  Prepare();
  const Rows marks{{"read --post 3 2", "1"}, {"unread --channel 2", "3"}, {"read --folder 1", "0"}};
  for (const auto& [arguments, unread] : marks) {
    EXPECT_EQ(Out("mark " + arguments), unread == "3" ? "marked unread\n" : "marked read\n");
    EXPECT_EQ(RunJson("list")["folders"][0]["unread"].dump(), unread) << arguments;
  }
  EXPECT_EQ(RunJson("clip 2 --cabinet 1")["done"], "clipped");
  const std::string misuses =
      ";nonsense;mark read;mark maybe --post 1;mark read --post 1 --channel 1;delete;cleanup -1;"
      "cleanup many;clip 1;show;check;add;export;import;directory;directory a --page 0;"
      "init --lang GER;init --code-page X;refresh --channel 2 --folder 1;"
      "posts --channel 2 --cabinet 1;posts --folder 1 --channel 2;posts --folder 1 --cabinet 1;"
      "posts --today --search o;posts --today --channel 2;posts --today --cabinet 1";
  ExpectRefused(misuses, "--help", 2);
  ExpectRefused("lsit;--json lsit --foo", "there is no command lsit; --help", 2);
  ExpectRefused("delete --post 1 999;clip 999 --cabinet 1;show 999", "no post 999\n");
  ExpectRefused("delete --channel 2 9;mark read --channel 9;posts --channel 9;refresh --channel 9",
                "there is no channel 9\n");
  ExpectRefused("delete --folder 9;mark read --folder 9;posts --folder 9;refresh --folder 9",
                "there is no folder 9\n");
  ExpectRefused("clip 1 --cabinet 9;posts --cabinet 9", "there is no cabinet 9\n");
  ExpectRefused("delete --folder 1", "folder 1 is protected\n");
  EXPECT_EQ(Ids(), "321");
  const Rows deletions{{"delete --post 3", "21"},
                       {"refresh", "21"},
                       {"cleanup 1", "21"},
                       {"cleanup 0", ""},
                       {"delete --channel 2", ""}};
  for (const auto& [arguments, left] : deletions) {
    EXPECT_EQ(Status(arguments), 0);
    EXPECT_EQ(Ids(), left) << arguments;
  }
  EXPECT_EQ(Out("cleanup 1") + Out("cleanup 0"),
            "deleted 0 posts stored 1 day ago or earlier\ndeleted 0 posts\n");
  EXPECT_EQ(RunJson("posts --cabinet 1")[0]["title"], "둘 two");
  EXPECT_EQ(RunJson("list")["cabinets"][0]["unread"], 1);
  EXPECT_EQ(RunJson("list")["folders"][0]["channels"].size(), 0u);
}

TEST_F(Commands, AShellCompletesCommandsOptionsAndTheirValues) {
  const std::string typed = folder_.Write("typed", Out("completion bash") + R"(
    type_() { COMP_WORDS=(feedloomctl "$@"); COMP_CWORD=$#; _feedloomctl; echo "${COMPREPLY[*]}"; }
    type_ lis; type_ --json posts --s; type_ init --lang ''; type_ completion f; type_ import /)");
  EXPECT_EQ(std::system(fmt::format("bash {} > {}", typed, folder_.File("got")).c_str()), 0);
  EXPECT_EQ(folder_.Read("got"), "list\n--search --since\nKOR ENG\nfish\n\n");
  ExpectRefused("completion", "shell is required", 2);
}

TEST_F(Commands, CheckShowsWhatTheReaderSeesOrWhyItIsNoFeed) {
  Run("init --code-page EUC-KR");
  server_.Serve("/a", RssDocument("한 ♥ 😀", {{"t", "l", "Tue, 10 Jun 2003 04:00:00 +0900", "d"}}));
  EXPECT_EQ(ReplaceAll(RunJson("check " + server_.Url("/a")).dump(), server_.Url("/"), ""),
            R"({"atomVariant":-1,"format":0,"items":[{"date":"Tue, 10 Jun 2003 04:00:00 +0900",)"
            R"("description":"d","enclosureType":"","link":"l","podcast":0,"stored":)"
            R"("2003-06-10 13:00:00","title":"t"}],"link":"http://site.example/","result":0,)"
            R"("rssVariant":2,"title":"한 ♥ ?"})");
  for (const auto& [source, part] :
       Rows{{folder_.Write("a", "<rss/>"), "result\": -93"},
            {folder_.Write("b", "<rss>\xFF</rss>"), "format\": null"},
            {folder_.Write("c", "<rss>" + Repeated("<b>", 300)), "error\": \"too large"},
            {folder_.Write("e", "<rss\n></rs>"), "\"line\": 2"},
            {folder_.Write("f", "<html><p>"), "\"kind\": \"web-page\""},
            {server_.Url("/absent"), "\"status\": 404"},
            {std::string(5000, 'a') + ".no", "result\": null"}}) {
    const CtlResult result = Run("check " + source);
    EXPECT_EQ(result.status, 1) << source;
    EXPECT_NE(result.out.find(part), std::string::npos) << result.out;
  }
  const std::string check =
      "check " + folder_.Write("d", "<rss version='2.0'><item><link>l</link>&</item></rss>");
  EXPECT_EQ(RunJson(check)["items"][0]["title"], "l");
  const std::string file = "profile/registry.reg", values = folder_.Read(file);
  folder_.Write(file, ReplaceAll(values, "\"LENIENT\"=\"ON\"", "\"LENIENT\"=\"\""));
  EXPECT_EQ(Run(check).status, 1);
}

}  // namespace feedloom
