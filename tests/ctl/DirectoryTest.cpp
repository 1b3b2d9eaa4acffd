// directory, asking the service of tools/feedloom-directory.
#include <fcntl.h>
#include <fmt/core.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <utility>

#include "ctl/CtlFixture.h"
#include "kit/ShippedSkin.h"
#include "platform/CodePage.h"
#include "platform/Registry.h"
#include "platform/Text.h"
#include "profile/Profile.h"
#include "skin/Keys.h"

namespace feedloom {
namespace {

using nlohmann::json;

// The real service for a file of feeds, on a port of its own.
class DirectoryService {
 public:
  DirectoryService(const std::string& opmlPath, const char* codePage) {
    int output[2];
    EXPECT_EQ(pipe2(output, O_CLOEXEC), 0);
    process_ = fork();
    if (process_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      dup2(output[1], STDOUT_FILENO);
      execl(FEEDLOOM_DIRECTORY, FEEDLOOM_DIRECTORY, "--port", "0", "--code-page", codePage,
            opmlPath.c_str(), nullptr);
      _exit(127);
    }
    close(output[1]);
    char byte = 0;
    while (read(output[0], &byte, 1) == 1 && byte != '\n') address_ += byte;
    close(output[0]);
  }
  ~DirectoryService() { End(); }

  const std::string& Address() const { return address_; }

  // Stops it; the exit status, or -1 when it did not end by itself.
  int End() {
    int status = 0;
    if (process_ <= 0) return -1;
    kill(process_, SIGTERM);
    waitpid(std::exchange(process_, 0), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  pid_t process_ = 0;
  std::string address_;
};

constexpr const char* kHead = R"(<?xml version="1.0" encoding="EUC-KR"?><opml><body>
<outline text="뉴스 가판대"><outline text="깊이"><outline text="한겨레 신문" xmlUrl="http://news/rss"/>
</outline></outline>
<outline text="R&amp;D #1 [IT] [lab] &lt;x&gt;" xmlUrl="http://lab/rd?a=1&amp;b=2" htmlUrl="http://lab/"
  description="About [HS] &amp;amp; [QK]"/>
)";

class Directory : public CtlFixture {
 protected:
  // A profile whose string file names a service with a few feeds and 60 weblogs.
  void Prepare(CodePage codePage = CodePage::Korean()) {
    std::string opml = kHead;
    for (int i = 1; i <= 60; ++i) {
      opml += fmt::format(R"(<outline title="Weblog {0}" xmlUrl="http://blog/{0}"/>)", i);
    }
    const std::string path =
        folder_.Write("list.opml", CodePage::Korean().FromUtf8(opml + "</body></opml>"));
    const std::string name(codePage.DeclaredName());
    service_.emplace(path, name.c_str());
    ASSERT_EQ(Run("init --code-page " + name).status, 0);
    PointTo(service_->Address());
  }

  void PointTo(const std::string& address) {
    std::ifstream shipped(ShareDir() + "/string.ini");
    const std::string texts{std::istreambuf_iterator<char>(shipped), {}};
    folder_.Write("string.ini", ReplaceAll(texts, "http://127.0.0.1:8930/search", address));
    ASSERT_NE(folder_.Read("string.ini").find(address), std::string::npos);
    const Registry registry(ProfilePaths(ProfileDir()).registry);
    ASSERT_TRUE(registry.WriteString(kHostKey, kValueIniDir, folder_.Path()));
  }

  std::optional<DirectoryService> service_;
};

TEST_F(Directory, FindsWordsOfAnyKindInTheProfilesCodePage) {
  for (const CodePage codePage : {CodePage::Korean(), CodePage::Utf8()}) {
    std::filesystem::remove_all(ProfileDir());
    Prepare(codePage);
    for (const char* word : {"'한겨레 신'", "깊이", "news/"}) {
      const json found = RunJson(std::string("directory ") + word);
      EXPECT_EQ(found["total"], 1) << word;
      EXPECT_EQ(found["page"], 1);
      const json row = found["rows"][0];
      EXPECT_EQ(row["title"], "한겨레 신문");
      EXPECT_EQ(row["link"], "http://news/rss");
      EXPECT_EQ(row["feedUrl"], "http://news/rss");
      EXPECT_EQ(row["description"], "깊이");
      EXPECT_EQ(row["podcast"], false);
      EXPECT_EQ(row["published"].get<std::string>().size(), 19u);
    }
    for (const char* word : {"'r&d #1'", "'#1 '", "'&'", "'<x>'", "'rd?a=1&b=2'"}) {
      const json found = RunJson(std::string("directory ") + word);
      EXPECT_EQ(found["total"], 1) << word;
      EXPECT_EQ(found["rows"][0]["title"], "R&D #1 (IT) [lab] <x>");
      EXPECT_EQ(found["rows"][0]["link"], "http://lab/");
      EXPECT_EQ(found["rows"][0]["feedUrl"], "http://lab/rd?a=1&b=2");
      EXPECT_EQ(found["rows"][0]["description"], "About (HS) &amp; (QK)");
    }
    EXPECT_EQ(RunJson("directory 'no such word & HTTP/1.1'"),
              json::parse(R"({"total":0,"page":1,"rows":[]})"));
    EXPECT_EQ(RunJson("directory ''")["total"], 62);
  }
}

TEST_F(Directory, HandsOutPagesOfFifty) {
  Prepare();
  EXPECT_EQ(RunJson("directory weblog")["rows"].size(), 50u);
  const json second = RunJson("directory weblog --page 2");
  EXPECT_EQ(second["total"], 60);
  EXPECT_EQ(second["page"], 2);
  EXPECT_EQ(second["rows"].size(), 10u);
  EXPECT_EQ(second["rows"][9]["title"], "Weblog 60");
  EXPECT_EQ(RunJson("directory weblog --page 3")["rows"].size(), 0u);

  const std::string lines = Run("directory 'Weblog 60'").out;
  EXPECT_TRUE(lines.starts_with("1 in all, 1 on page 1\n2")) << lines;
  EXPECT_TRUE(lines.ends_with(" Weblog 60 http://blog/60\n")) << lines;
  EXPECT_EQ(Run("directory weblog --page 0").status, 2);
  EXPECT_EQ(Run("directory weblog --page -1").status, 2);
}

TEST_F(Directory, SaysWhenThereIsNoAnswer) {
  Prepare();
  EXPECT_EQ(service_->End(), 0);
  const CtlResult gone = Run("directory weblog");
  EXPECT_EQ(gone.status, 1);
  EXPECT_EQ(gone.out, "");
  EXPECT_EQ(gone.err, "feedloomctl: " + service_->Address() + " gave no answer\n");
  PointTo("");
  EXPECT_EQ(Run("directory weblog").err, "feedloomctl: the string file names no web directory\n");
}

TEST_F(Directory, TheServiceSaysWhyItCannotServe) {
  Prepare();
  const auto complaint = [this](const std::string& arguments) {
    const std::string command = FEEDLOOM_DIRECTORY " " + arguments + " 2>" + folder_.File("err");
    const int status = WEXITSTATUS(std::system(command.c_str()));
    return std::to_string(status) + " " + folder_.Read("err");
  };
  const std::string list = folder_.File("list.opml");
  const std::string port =
      ReplaceAll(ReplaceAll(service_->Address(), "http://127.0.0.1:", ""), "/search", "");
  const std::string html = folder_.Write("page.html", "<html></html>");
  const std::string torn = folder_.Write("torn.opml", "<opml><body>");
  EXPECT_EQ(complaint("--port " + port + " " + list),
            "1 feedloom-directory: port " + port + ": Address already in use\n");
  EXPECT_EQ(complaint("/no/list"), "2 feedloom-directory: /no/list: No such file or directory\n");
  EXPECT_EQ(complaint(html),
            "2 feedloom-directory: " + html + ": the document is no OPML but <html>\n");
  EXPECT_TRUE(complaint(torn).starts_with("2 feedloom-directory: " + torn + ": no element found"));
}

}  // namespace
}  // namespace feedloom
