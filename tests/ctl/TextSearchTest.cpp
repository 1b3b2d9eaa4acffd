// The search in texts from the command line.
#include "ctl/CtlFixture.h"

namespace feedloom {

struct TextSearches : CtlFixture {
  // Channel 1 of folder 2 with posts 1 to 3, of which 1 is read, and a saved post 1.
  void Prepare(const std::string& codePage) {
    Run("init --lang ENG --code-page " + codePage);
    Run("delete --channel 1");
    server_.Serve("/a", RssDocument("News", {{"Bread", "a", Day(10),
                                              "<p>Uber alles: <b>open</b> "
                                              "source reader</p>"},
                                             {"A reader", "b", Day(11), "대통령이 말했다"},
                                             {"Source, open", "c", Day(12), "<i title='x'>Readers"},
                                             {"제주 여행", "d", Day(13), "reader reader reader"}}));
    Run("add --folder Mine " + server_.Url("/a"));
    Run("refresh");
    Run("clip 4 --cabinet 1");
    Run("delete --post 4");
    Run("mark read --post 1");
  }
  static std::string Day(int day) { return fmt::format("Tue, {} Jun 2003 04:00:00 GMT", day); }

  // The numbers of the posts that are found, "s" in front of a saved one.
  std::string Found(const std::string& query, const std::string& options = "") const {
    std::string found;
    for (const json& post : RunJson("posts " + options + " --text '" + query + "'"))
      found += (post["saved"] ? "s" : "") + post["id"].dump();
    return found;
  }
};

TEST_F(TextSearches, FindPostsAndSavedPostsByTitleAndTextTheBestFirst) {
  for (const char* codePage : {"EUC-KR", "UTF-8"}) {
    profile_ = folder_.File(codePage);
    Prepare(codePage);
    for (const auto& [query, found] : Rows{{"ÜBER", "1"},
                                           {"대통령", "2"},
                                           {"제목:제주", "s1"},
                                           {"\"open source", "1"},
                                           {"open source", "31"},
                                           {"read* -title:reader", "s131"},
                                           {"channel:news until:2003-06-11 reader", "21"},
                                           {"title", ""}}) {
      EXPECT_EQ(Found(query), found) << codePage << " " << query;
    }
  }
  EXPECT_EQ(Out("posts --text 'reader' --limit 2"),
            "     2 * 2003-06-11 04:00:00 A reader [News]\n"
            "     1 * 2003-06-13 04:00:00 제주 여행 [My cabinet, saved]\n");
}

TEST_F(TextSearches, KeepToARowAnOrderAndWhatElseIsAskedFor) {
  Prepare("UTF-8");
  for (const auto& [options, found] : Rows{{"--by-date", "s121"},
                                           {"--by-date --limit 1", "s1"},
                                           {"--channel 1", "21"},
                                           {"--folder 2", "21"},
                                           {"--folder 1", ""},
                                           {"--cabinet 1", "s1"},
                                           {"--unread --limit 1 --channel 1", "2"},
                                           {"--since 2003-06-12", "s1"}}) {
    EXPECT_EQ(Found("reader", options), found) << options;
  }
  ExpectRefused("posts --text a --channel 9", "there is no channel 9\n");
  ExpectRefused("posts --text a --cabinet 9", "there is no cabinet 9\n");
  ExpectRefused("posts --text a --search b;posts --text a --today;posts --by-date", "--help", 2);
}

TEST_F(TextSearches, SayWhatIsWrongWithAQuery) {
  ExpectRefused("posts --text '';posts --text ' - \"\" * :';posts --text title:",
                "the query has no word to look for", 2);
  ExpectRefused("posts --text 'a since:2003-13';posts --text 'a 까지:'", "no year, month or day",
                2);
  ExpectRefused("posts --text \"$(printf 'a%.0s ' $(seq 50000))\"", "has more than ", 2);
}

TEST_F(TextSearches, FillTheIndexThatACommandCountsAndBeginsAgain) {
  Prepare("UTF-8");
  EXPECT_EQ(Out("index"), "added 4 texts; 4 indexed, 0 waiting\n");
  Run("delete --post 1");
  Run("clip 2 --cabinet 1");
  EXPECT_EQ(Found("대통령"), "2s2");
  EXPECT_EQ(RunJson("index").dump(), R"({"added":0,"indexed":4,"waiting":0})");
  EXPECT_EQ(Out("index --rebuild"), "added 4 texts; 4 indexed, 0 waiting\n");
  EXPECT_EQ(Found("대통령"), "2s2");
}

}  // namespace feedloom
