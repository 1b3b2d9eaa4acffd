#include <gtest/gtest.h>

#include "kit/TempFolder.h"
#include "skin/Keys.h"
#include "skin/Skin.h"
#include "ui/page/Pages.h"

namespace feedloom {
namespace {

const PageSkin kSkin = {.titleImage = "/s/title.png",
                        .addButtonImage = "/s/add.png",
                        .scrapButtonImage = "/s/scrap.png",
                        .bottomImage = "/s/bottom.png",
                        .saveImage = "/s/save.png",
                        .playerBackground = "/s/player.gi",
                        .addTooltip = "Add it",
                        .scrapTooltip = "Keep it"};

constexpr char kHead[] =
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">"
    "<html><head><title>Feedloom</title><meta http-equiv=\"Content-Type\" content=\"text/html; "
    "charset=euc-kr\"></head>"
    "<body style='margin-top:0px;margin-left:0px;margin-right:0px;margin-bottom:0px'><table "
    "width=\"100%\" border=\"0\" cellpadding=\"0\" cellspacing=\"0\">";

constexpr char kTitleBar[] =
    "<tr><td height=\"33\" background=\"/s/title.png\"><table width=\"100%\" border=\"0\" "
    "cellspacing=\"0\" cellpadding=\"0\"><tr>"
    "<td><div id=\"title-0\" align=\"center\"><strong><font color=\"#333333\" size=\"2\">A "
    "<b>title</b></font></strong></div></td>";

constexpr char kAddCells[] =
    "<td width=\"18\"><a href=\"ID_BTN_RSSADD?0\"><img src=\"/s/add.png\" name=\"ID_BTN_RSSADD\" "
    "alt=\"Add it\" width=\"18\" height=\"33\" border=\"0\"></a></td>"
    "<td width=\"0\"><div id=\"rsspath-0\" title=\"http://feed.example/f?a=1&b={2}\"></div></td>";

constexpr char kScrapCells[] =
    "<td width=\"18\"><a href=\"ID_BTN_RSSSCRAP?0\"><img src=\"/s/scrap.png\" "
    "name=\"ID_BTN_RSSSCRAP\" alt=\"Keep it\" width=\"18\" height=\"33\" border=\"0\"></a></td>"
    "<td width=\"11\"><div id=\"scraplink-0\" title=\"http://site.example/1\"></div></td>";

constexpr char kDescription[] =
    "<tr><td><table width=\"80%\" border=\"0\" align=\"center\" cellpadding=\"0\" "
    "cellspacing=\"0\"><tr>"
    "<td><div id=\"disc-0\" align=\"left\"><font color=\"#575757\" size=\"2\"><p>50% {0} \"off\""
    "</p></font><strong><br></strong></div></td></tr></table></td></tr>"
    "<tr><td>&nbsp;</td></tr><tr>"
    "<td height=\"29\" background=\"/s/bottom.png\"><table width=\"80%\" border=\"0\" "
    "align=\"left\" cellpadding=\"0\" cellspacing=\"0\">";

constexpr char kTail[] = "</table></body></html>";

const std::string kPostPageStart = std::string(kHead) + kTitleBar;
const std::string kPostPageEnd =
    "<td width=\"10\"><div id=\"pubdate-0\" title=\"2008-03-07 14:05:00\"></div></td>" +
    std::string(kScrapCells) + "</tr></table></td></tr><tr><td>&nbsp;</td></tr>" + kDescription +
    "<tr><td width=\"10\"></td><td><a href=\"http://site.example/1\"><font color=\"#999999\" "
    "size=\"2\">http://site.example/1</font></td></tr></table></td></tr>" +
    kTail;

const std::string kPodcastPageStart = std::string(kHead) + kTitleBar;
const std::string kPodcastPageEnd =
    "<td width=\"18\">&nbsp;</td>" + std::string(kScrapCells) +
    "</tr></table></td></tr>"
    "<tr><td><table width=\"95%\" border=\"0\" align=\"center\" cellpadding=\"0\" "
    "cellspacing=\"0\">"
    "<tr><td><div id=\"pubdate-0\" align=\"left\"><font color=\"#B2B2B2\" size=\"2\">2008-03-07 "
    "14:05:00</font><strong><br></strong></div></td></tr></table></td></tr>" +
    kDescription +
    "<tr><td width=\"20\">&nbsp;</td><td width=\"16\"><a href=\"http://site.example/1\"><img "
    "src=\"/s/save.png\" width=\"16\" height=\"29\" border=\"0\"></a></td><td "
    "width=\"10\">&nbsp;</td>"
    "<td><font color=\"#999999\" size=\"2\"><a "
    "href=\"http://site.example/1\">http://site.example/1</a></font></td></tr></table></td></tr>" +
    kTail;

// A page of the post that the literals above hold, from one of the two preview builders.
std::string OnePost(decltype(&BuildPostPreviewPage) build, const std::string& feedUrl,
                    bool showAdd) {
  return build(1, {"A <b>title</b>"}, {"http://site.example/1"}, {"<p>50% {0} \"off\"</p>"},
               {"2008-03-07 14:05:00"}, {feedUrl}, showAdd, kSkin, "euc-kr");
}

TEST(PreviewPageTest, APostHidesItsDateAndLeavesItsLinkOpen) {
  EXPECT_EQ(OnePost(BuildPostPreviewPage, "", false), kPostPageStart + kPostPageEnd);
}

TEST(PreviewPageTest, APodcastShowsItsDateAndASaveIcon) {
  EXPECT_EQ(OnePost(BuildPodcastPreviewPage, "", false), kPodcastPageStart + kPodcastPageEnd);
}

TEST(PreviewPageTest, TheAddButtonNeedsBothTheModeAndAFeed) {
  constexpr char kFeed[] = "http://feed.example/f?a=1&b={2}";
  EXPECT_EQ(OnePost(BuildPostPreviewPage, kFeed, true), kPostPageStart + kAddCells + kPostPageEnd);
  EXPECT_EQ(OnePost(BuildPodcastPreviewPage, kFeed, true),
            kPodcastPageStart + kAddCells + kPodcastPageEnd);
  EXPECT_EQ(OnePost(BuildPostPreviewPage, kFeed, false), kPostPageStart + kPostPageEnd);
  EXPECT_EQ(OnePost(BuildPostPreviewPage, "", true), kPostPageStart + kPostPageEnd);
}

TEST(PreviewPageTest, ListsOfAnotherLengthThanTheCountGiveNoPage) {
  const PageTexts one = {"x"};
  for (const auto build : {BuildPostPreviewPage, BuildPodcastPreviewPage}) {
    EXPECT_EQ(build(2, one, one, one, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(-1, {}, {}, {}, {}, {}, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(1, {}, one, one, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(1, one, {}, one, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(1, one, one, {}, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(0, {}, {}, {}, {}, {}, true, kSkin, "euc-kr"), std::string(kHead) + kTail);
    const std::string page = build(1, one, one, one, {}, {}, true, kSkin, "euc-kr");
    EXPECT_NE(page.find("id=\"pubdate-0\""), std::string::npos);
    EXPECT_EQ(page.find("ID_BTN_RSSADD"), std::string::npos);
  }
}

TEST(PreviewPageTest, PostsAreNumberedFromZero) {
  const PageTexts texts(11, "x");
  const std::string page =
      BuildPostPreviewPage(11, texts, texts, texts, texts, texts, true, kSkin, "euc-kr");
  for (const char* part : {"title-10", "disc-10", "pubdate-10", "scraplink-10", "rsspath-10",
                           "ID_BTN_RSSADD?10", "ID_BTN_RSSSCRAP?10"}) {
    EXPECT_NE(page.find('"' + std::string(part) + '"'), std::string::npos) << part;
  }
}

TEST(PreviewPageTest, TheCharsetFollowsTheCodePageAndTextsPassUnchanged) {
  EXPECT_EQ(PageCharset(CodePage::Korean()), "euc-kr");
  EXPECT_EQ(PageCharset(CodePage::Utf8()), "utf-8");
  const std::string korean = CodePage::Korean().FromUtf8("똠방각하");
  const std::string page =
      BuildPostPreviewPage(1, {korean}, {""}, {""}, {""}, {""}, false, kSkin, "utf-8");
  EXPECT_NE(page.find("text/html; charset=utf-8\""), std::string::npos);
  EXPECT_NE(page.find("size=\"2\">" + korean + "</font>"), std::string::npos);
}

TEST(PodcastPlayerPageTest, EmbedsTheMediaOnABlackPage) {
  EXPECT_EQ(BuildPodcastPlayerPage("title", "http://m.example/a.mp3", "text", "date", kSkin),
            "<html><head></head>"
            "<body style='margin-top:0px;margin-bottom:0px;margin-left:0px;margin-right:0px'>"
            "<table cellpadding=0 cellspacing=0 bgcolor=black width=100% height=100%><tr>"
            "<td align=center background=\"/s/player.gif\" style='color:white'>"
            "<table cellpadding=0 cellspacing=0><tr><td width=\"42\"><div align=\"center\">"
            "<embed src=\"http://m.example/a.mp3\"></div></td></table></td></tr></table>"
            "</body></html>");
}

TEST(PageSkinTest, TakesImagesAndTooltipsFromTheHost) {
  const TempFolder folder;
  const Registry registry(folder.File("registry.reg"));
  ASSERT_TRUE(registry.WriteString(kHostKey, kValueImageDir, "/집"));
  const auto keyInSection = [](const char* section, const char* key) {
    return std::string(section) + "." + key;
  };
  const PageSkin skin = LoadPageSkin(Skin({keyInSection, keyInSection}, HostConfig(registry)));

  const std::string start = CodePage::Korean().FromUtf8("/집/RSS_HTML.RSS_HTML_");
  EXPECT_EQ(skin.titleImage, start + "POSTNEWS_TITLE_IMG");
  EXPECT_EQ(skin.addButtonImage, start + "POSTNEWS_ADDBTN_IMG");
  EXPECT_EQ(skin.scrapButtonImage, start + "POSTNEWS_SCRAPBTN_IMG");
  EXPECT_EQ(skin.bottomImage, start + "POSTNEWS_BOTTOM_IMG");
  EXPECT_EQ(skin.saveImage, start + "POSTNEWS_SAVE_IMG");
  EXPECT_EQ(skin.playerBackground, start + "PODCAST_ORG_BG");
  EXPECT_EQ(skin.addTooltip, "FEEDLOOM.RSS_RIGHT_BOTTOM_TOOLBAR_TOOLTIP_BUTTON_RSS");
  EXPECT_EQ(skin.scrapTooltip, "FEEDLOOM.RSS_RIGHT_BOTTOM_TOOLBAR_TOOLTIP_BUTTON_SCRAP");
}

TEST(CrashPageTest, SaysWhatHasHappenedAndLeadsBack) {
  const std::string page = BuildCrashPage("It <ended>", "Again & again", "http://h/?a=1&b=\"2\"");
  EXPECT_NE(page.find("<p>It &lt;ended></p>"), std::string::npos) << page;
  EXPECT_NE(page.find("<a href=\"http://h/?a=1&amp;b=&quot;2&quot;\">Again &amp; again</a>"),
            std::string::npos)
      << page;
}

}  // namespace
}  // namespace feedloom
