#include <gtest/gtest.h>

#include <regex>

#include "ui/page/Pages.h"

namespace feedloom {

const PageSkin kSkin = {"/s/title.png", "/s/add.png",   "/s/scrap.png", "/s/bottom.png",
                        "/s/save.png",  "/s/player.gi", "Add it",       "Keep it"};

// What a page shows, names and leads to, in its order.
static std::string Outline(const std::string& page) {
  static const std::regex part(
      R"((?: (?:background|id|title|href|src|alt|size)="|charset=|>)([^<>"]+))");
  std::string outline;
  for (std::sregex_iterator each(page.begin(), page.end(), part), end; each != end; ++each)
    outline += each->str(1) + "|";
  return outline;
}

TEST(PreviewPageTest, APostHidesItsDateAPodcastShowsItAndTheAddButtonNeedsBothTheModeAndAFeed) {
  const std::string feed = "http://feed.example/f?a=1&b={2}",
                    begin = "Feedloom|euc-kr|/s/title.png|title-0|2|A |title|",
                    add = "ID_BTN_RSSADD?0|/s/add.png|Add it|rsspath-0|" + feed + "|",
                    save = "ID_BTN_RSSSCRAP?0|/s/scrap.png|Keep it|scraplink-0|http://1/|",
                    text = "disc-0|2|50% {0} off|&nbsp;|/s/bottom.png|";
  const std::string ends[] = {
      "pubdate-0|2008-03-07|" + save + "&nbsp;|" + text + "http://1/|2|http://1/|",
      "&nbsp;|" + save + "pubdate-0|2|2008-03-07|" + text +
          "&nbsp;|http://1/|/s/save.png|&nbsp;|2|http://1/|http://1/|"};
  for (const bool isPodcast : {false, true}) {
    for (const auto& [url, showAdd] :
         {std::pair(std::string(), false), {"", true}, {feed, false}, {feed, true}}) {
      const auto build = isPodcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
      EXPECT_EQ(Outline(build(1, {"A <b>title</b>"}, {"http://1/"}, {"<p>50% {0} off</p>"},
                              {"2008-03-07"}, {url}, showAdd, kSkin, "euc-kr", {})),
                begin + (showAdd && url == feed ? add : "") + ends[isPodcast]);
    }
  }
}

TEST(PreviewPageTest, NamesAuthorsBelowTheHeadingAndCategoriesBehindTheText) {
  for (const auto build : {BuildPostPreviewPage, BuildPodcastPreviewPage}) {
    const auto page = [&](const PageCredits& credits) {
      return build(1, {"t"}, {"l"}, {"words"}, {"date"}, {}, false, kSkin, "utf-8", {credits});
    };
    const std::string plain = page({}), full = page({"A <b>\nB", "c&\""});
    const auto author = full.find(
                   "<div id=\"author-0\" align=\"left\"><font color=\"#999999\" "
                   "size=\"2\">A &lt;b>, B</font></div>"),
               category = full.find(">c&amp;&quot;</font>");
    EXPECT_LT(full.find("date"), author);
    EXPECT_LT(author, full.find("words"));
    EXPECT_LT(full.find("words"), category);
    EXPECT_LT(category, full.find("/s/bottom.png"));
    EXPECT_EQ(plain.find("author-"), plain.find("category-"));
    EXPECT_LT(plain.size(), full.size());
  }
}

TEST(PreviewPageTest, NeedsAsManyTitlesLinksAndDescriptionsAsPostsWhichAreNumberedFromZero) {
  const PageTexts one = {"x"}, all(11, "x");
  for (const auto build : {BuildPostPreviewPage, BuildPodcastPreviewPage}) {
    for (const auto& [count, titles, links, texts] : {std::tuple(2, one, one, one),
                                                      {-1, {}, {}, {}},
                                                      {1, {}, one, one},
                                                      {1, one, {}, one},
                                                      {1, one, one, {}}})
      EXPECT_EQ(build(count, titles, links, texts, one, one, true, kSkin, "euc-kr", {}), "");
    EXPECT_EQ(Outline(build(0, {}, {}, {}, {}, {}, true, kSkin, "utf-8", {})), "Feedloom|utf-8|");
    // Dates and feeds may be missing, here behind the first.
    const std::string page = build(11, all, all, all, one, one, true, kSkin, "euc-kr", {});
    for (const char* id : {"title-10", "disc-10", "pubdate-10", "scraplink-10",
                           "ID_BTN_RSSSCRAP?10", "ID_BTN_RSSADD?0"})
      EXPECT_NE(page.find('"' + std::string(id) + '"'), std::string::npos) << id;
    EXPECT_EQ(page.find("ID_BTN_RSSADD?1"), std::string::npos);
  }
}

TEST(PodcastPlayerPageTest, EmbedsTheMediaBeforeTheSkinsPicture) {
  EXPECT_EQ(Outline(BuildPodcastPlayerPage("title", "http://m/a.mp3", "text", "date", kSkin)),
            "/s/player.gif|http://m/a.mp3|");
}

TEST(CrashPageTest, SaysWhatHasHappenedAndLeadsBack) {
  const std::string page = BuildCrashPage("It <ended>", "Again & again", "http://h/?a=1&b=\"2\"");
  EXPECT_NE(page.find("<p>It &lt;ended></p><p><a href=\"http://h/?a=1&amp;b=&quot;2&quot;\">Again "
                      "&amp; again</a></p>"),
            std::string::npos)
      << page;
}

}  // namespace feedloom
