// directory, asking the service of tools/feedloom-directory.
#include <fmt/core.h>

#include <fstream>

#include "ctl/CtlFixture.h"
#include "kit/ShippedSkin.h"
#include "platform/CodePage.h"
#include "platform/Registry.h"
#include "platform/Text.h"
#include "profile/Profile.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

class Directory : public CtlFixture {
 protected:
  ~Directory() override { Stop(); }

  // A profile whose string file names a service, on a port of its own, with a few feeds and 60
  // weblogs.
  void Prepare(CodePage codePage = CodePage::Korean()) {
    std::string opml = R"(<?xml version="1.0" encoding="EUC-KR"?><opml><body>
        <outline text="뉴스 가판대"><outline text="깊이"><outline text="한겨레 신문"
        xmlUrl="http://news/rss"/></outline></outline><outline text="R&amp;D #1 [IT] [lab] &lt;x&gt;"
        xmlUrl="http://lab/rd?a=1&amp;b=2" htmlUrl="http://lab/"
        description="About [HS] &amp;amp; [QK]"/>)";
    for (int i = 1; i <= 60; ++i) {
      opml += fmt::format(R"(<outline title="Weblog {0}" xmlUrl="http://blog/{0}"/>)", i);
    }
    folder_.Write("list", CodePage::Korean().FromUtf8(opml + "</body></opml>"));
    const std::string name(codePage.DeclaredName());
    Stop();
    // Reading from the pipe waits for the line with the address.
    Shell("rm -f pipe end; mkfifo pipe end; (" FEEDLOOM_DIRECTORY " --port 0 --code-page " + name +
          " list >pipe & echo $! >pid; wait $!; echo $? >end) 2>err & "
          "read address <pipe; echo $address >address");
    std::ifstream(folder_.File("address")) >> address_;
    std::filesystem::remove_all(profile_);
    ASSERT_EQ(Status("init --code-page " + name), 0);
    PointTo(address_);
  }
  int Shell(const std::string& command) const {
    return WEXITSTATUS(std::system(("cd " + folder_.Path() + "; " + command).c_str()));
  }
  // Returns the service's exit status, 0 also when there is none.
  int Stop() const {
    return Shell("[ ! -f pid ] || { kill $(cat pid); rm pid; read status <end; exit $status; }");
  }
  void PointTo(const std::string& address) {
    std::ifstream shipped(ShareDir() + "/string.ini");
    const std::string texts{std::istreambuf_iterator<char>(shipped), {}};
    folder_.Write("string.ini", ReplaceAll(texts, "http://127.0.0.1:8930/search", address));
    const Registry registry(ProfilePaths(profile_).registry);
    ASSERT_TRUE(registry.WriteString(kHostKey, kValueIniDir, folder_.Path()));
  }

  std::string address_;
};

TEST_F(Directory, FindsWordsOfAnyKindInTheProfilesCodePage) {
  for (const CodePage codePage : {CodePage::Korean(), CodePage::Utf8()}) {
    Prepare(codePage);
    const std::pair<std::vector<const char*>, const char*> cases[] = {
        {{"'한겨레 신'", "깊이", "news/"},
         R"({"title":"한겨레 신문","link":"http://news/rss","feedUrl":"http://news/rss",
             "description":"깊이","podcast":false})"},
        {{"'r&d #1'", "'#1 '", "'&'", "'<x>'", "'rd?a=1&b=2'"},
         R"~({"title":"R&D #1 (IT) [lab] <x>","link":"http://lab/","podcast":false,
             "feedUrl":"http://lab/rd?a=1&b=2","description":"About (HS) &amp; (QK)"})~"}};
    for (const auto& [words, expected] : cases) {
      for (const char* word : words) {
        json found = RunJson(std::string("directory ") + word);
        EXPECT_EQ(found["total"], 1) << word;
        EXPECT_EQ(found["rows"][0]["published"].get<std::string>().size(), 19u);
        found["rows"][0].erase("published");
        EXPECT_EQ(found["rows"][0], json::parse(expected)) << word;
      }
    }
    EXPECT_EQ(RunJson("directory 'no such word & HTTP/1.1'"),
              json::parse(R"({"total":0,"page":1,"rows":[]})"));
    EXPECT_EQ(RunJson("directory ''")["total"], 62);
  }
}

TEST_F(Directory, HandsOutPagesOfFiftyAndSaysWhenThereIsNoAnswer) {
  Prepare();
  for (const auto& [page, rows] : {std::pair(1, 50), {2, 10}, {3, 0}}) {
    const json found = RunJson(fmt::format("directory weblog --page {}", page));
    EXPECT_EQ(found["total"], 60);
    EXPECT_EQ(found["page"], page);
    EXPECT_EQ(found["rows"].size(), rows);
  }
  const std::string lines = Out("directory 'Weblog 60'");
  EXPECT_TRUE(lines.starts_with("1 in all, 1 on page 1\n2")) << lines;
  EXPECT_TRUE(lines.ends_with(" Weblog 60 http://blog/60\n")) << lines;
  const std::string port = ReplaceAll(ReplaceAll(address_, "http://127.0.0.1:", ""), "/search", "");
  folder_.Write("html", "<html></html>");
  folder_.Write("torn", "<opml><body>");
  const std::tuple<std::string, int, std::string> cases[] = {
      {"--port " + port + " list", 1, "port " + port + ": Address already in use\n"},
      {"/no/list", 2, "/no/list: No such file or directory\n"},
      {"html", 2, "html: the document is no OPML but <html>\n"},
      {"torn", 2, "torn: no element found"}};
  for (const auto& [arguments, status, reason] : cases) {
    EXPECT_EQ(Shell(FEEDLOOM_DIRECTORY " " + arguments + " 2>err"), status) << arguments;
    EXPECT_EQ(folder_.Read("err").find("feedloom-directory: " + reason), 0u) << folder_.Read("err");
  }
  EXPECT_EQ(Stop(), 0);
  ExpectRefused({{"directory weblog", "feedloomctl: " + address_ + " gave no answer\n"}});
  PointTo("");
  ExpectRefused({{"directory weblog", "feedloomctl: the string file names no web directory\n"}});
}

}  // namespace
}  // namespace feedloom
