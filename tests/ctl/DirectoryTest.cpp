// directory, asking the service of tools/feedloom-directory.
#include <signal.h>

#include <fstream>

#include "ctl/CtlFixture.h"
#include "profile/Profile.h"
#include "skin/Keys.h"

namespace feedloom {

struct Directory : CtlFixture {
  ~Directory() override { EXPECT_EQ(Stop(), 0); }

  // A service with two feeds and 60 weblogs, and a profile whose own texts name it.
  void Prepare(const std::string& codePage) {
    std::string opml = R"(<?xml version="1.0" encoding="EUC-KR"?><opml><body><outline text="깊이">
        <outline text="한겨레 신문" xmlUrl="http://news/rss"/></outline>
        <outline text="R&amp;D #1 [IT] &lt;x&gt;" xmlUrl="http://r?a=1&amp;b=2"
        htmlUrl="http://lab/" description="[HS] &amp;amp;"/>)";
    for (int i = 1; i < 61; ++i) opml += fmt::format("<outline text='Log {0}' xmlUrl='b:{0}'/>", i);
    folder_.Write("list", CodePage::Korean().FromUtf8(opml + "</body></opml>"));
    const std::string command = "cd " + folder_.Path() +
                                "; echo $$; exec " FEEDLOOM_DIRECTORY " --port 0 --code-page " +
                                codePage + " list 2>err";
    ASSERT_EQ(Stop(), 0);
    service_ = popen(command.c_str(), "r");
    ASSERT_EQ(fscanf(service_, "%d %99s", &pid_, address_), 2);
    profile_ = folder_.File(codePage);
    ASSERT_EQ(Status("init --code-page " + codePage), 0);
    PointTo(address_);
  }
  // Returns the service's exit status, 0 also when there is none.
  int Stop() {
    if (service_ == nullptr) return 0;
    kill(pid_, SIGTERM);
    return pclose(std::exchange(service_, nullptr));
  }
  void PointTo(const char* address) {
    std::ofstream(ProfilePaths(profile_).texts) << "[FEEDLOOM]\n"
                                                << kTextDirectoryService << '=' << address;
  }

  FILE* service_ = nullptr;
  int pid_ = 0;
  char address_[100] = "";
};

TEST_F(Directory, FindsWordsOfAnyKindAPageAtATimeAndSaysWhenThereIsNoAnswer) {
  const char* const news = R"(["한겨레 신문","http://news/rss","http://news/rss","깊이"])";
  const char* const lab = R"~(["R&D #1 (IT) <x>","http://lab/","http://r?a=1&b=2","(HS) &amp;"])~";
  for (const char* codePage : {"EUC-KR", "UTF-8"}) {
    Prepare(codePage);
    const Rows words{{"'한겨레 신'", news}, {"깊이", news}, {"'r&d #1'", lab}, {"'?a=1&b'", lab}};
    for (const auto& [word, expected] : words) {
      const json row = RunJson("directory " + word)["rows"][0];
      const json shown{row["title"], row["link"], row["feedUrl"], row["description"]};
      EXPECT_EQ(shown.dump(), expected) << word;
    }
  }
  for (const auto& [words, expected] : Rows{{"log", "[60,1,50]"}, {"log --page 2", "[60,2,10]"}}) {
    const json found = RunJson("directory " + words);
    EXPECT_EQ(json({found["total"], found["page"], found["rows"].size()}).dump(), expected);
  }
  EXPECT_EQ(Stop(), 0);
  ExpectRefused("directory log", fmt::format("feedloomctl: {} gave no answer\n", address_));
  PointTo("");
  ExpectRefused("directory log", "feedloomctl: no web directory has been set up\n");
}

}  // namespace feedloom
