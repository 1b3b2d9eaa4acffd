#include <gtest/gtest.h>

#include "platform/Text.h"
#include "ui/page/Pages.h"

namespace feedloom {

const PageSkin kSkin = {"/s/title.png", "/s/add.png",   "/s/scrap.png", "/s/bottom.png",
                        "/s/save.png",  "/s/player.gi", "Add it",       "Keep it"};

// The pages as they must be, from raw texts whose line ends are left out.
static std::string Joined(std::string text) { return ReplaceAll(text, "\n", ""); }

const std::string kHead = Joined(R"--(
<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN"><html><head><title>Feedloom</title>
<meta http-equiv="Content-Type" content="text/html; charset=euc-kr"></head>
<body style='margin-top:0px;margin-left:0px;margin-right:0px;margin-bottom:0px'>
<table width="100%" border="0" cellpadding="0" cellspacing="0">)--");
const std::string kTitleBar = Joined(R"--(
<tr><td height="33" background="/s/title.png"><table width="100%" border="0" cellspacing="0" cellpadding="0"><tr>
<td><div id="title-0" align="center"><strong><font color="#333333" size="2">A <b>title</b></font></strong></div></td>)--");
const std::string kAddCells = Joined(R"--(
<td width="18"><a href="ID_BTN_RSSADD?0"><img src="/s/add.png" name="ID_BTN_RSSADD" alt="Add it" width="18"
 height="33" border="0"></a></td>
<td width="0"><div id="rsspath-0" title="http://feed.example/f?a=1&b={2}"></div></td>)--");
const std::string kScrapCells = Joined(R"--(
<td width="18"><a href="ID_BTN_RSSSCRAP?0"><img src="/s/scrap.png" name="ID_BTN_RSSSCRAP" alt="Keep it" width="18"
 height="33" border="0"></a></td><td width="11"><div id="scraplink-0" title="http://site.example/1"></div></td>)--");
const std::string kDescription = Joined(R"--(
<tr><td><table width="80%" border="0" align="center" cellpadding="0" cellspacing="0"><tr><td>
<div id="disc-0" align="left"><font color="#575757" size="2"><p>50% {0} "off"</p></font><strong><br></strong></div>
</td></tr></table></td></tr><tr><td>&nbsp;</td></tr><tr><td height="29" background="/s/bottom.png">
<table width="80%" border="0" align="left" cellpadding="0" cellspacing="0">)--");
const std::string kTail = "</table></body></html>";

const std::string kPostPageEnd = Joined(R"--(
<td width="10"><div id="pubdate-0" title="2008-03-07 14:05:00"></div></td>)--" +
                                        kScrapCells + R"--(
</tr></table></td></tr><tr><td>&nbsp;</td></tr>)--" +
                                        kDescription + R"--(
<tr><td width="10"></td><td><a href="http://site.example/1"><font color="#999999" size="2">
http://site.example/1</font></td></tr></table></td></tr>)--" +
                                        kTail);
const std::string kPodcastPageEnd = Joined(R"--(<td width="18">&nbsp;</td>)--" + kScrapCells + R"--(
</tr></table></td></tr><tr><td><table width="95%" border="0" align="center" cellpadding="0" cellspacing="0"><tr><td>
<div id="pubdate-0" align="left"><font color="#B2B2B2" size="2">2008-03-07 14:05:00</font><strong><br></strong></div>
</td></tr></table></td></tr>)--" + kDescription +
                                           R"--(
<tr><td width="20">&nbsp;</td><td width="16"><a href="http://site.example/1"><img src="/s/save.png" width="16"
 height="29" border="0"></a></td><td width="10">&nbsp;</td><td><font color="#999999" size="2">
<a href="http://site.example/1">http://site.example/1</a></font></td></tr></table></td></tr>)--" +
                                           kTail);

TEST(PreviewPageTest, APostHidesItsDateAPodcastShowsItAndTheAddButtonNeedsBothTheModeAndAFeed) {
  constexpr char kFeed[] = "http://feed.example/f?a=1&b={2}";
  for (const bool isPodcast : {false, true}) {
    for (const auto& [feed, showAdd] :
         {std::pair("", false), {"", true}, {kFeed, false}, {kFeed, true}}) {
      const auto build = isPodcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
      const std::string add = showAdd && feed == kFeed ? kAddCells : "";
      EXPECT_EQ(build(1, {"A <b>title</b>"}, {"http://site.example/1"}, {"<p>50% {0} \"off\"</p>"},
                      {"2008-03-07 14:05:00"}, {feed}, showAdd, kSkin, "euc-kr"),
                kHead + kTitleBar + add + (isPodcast ? kPodcastPageEnd : kPostPageEnd));
    }
  }
}

TEST(PreviewPageTest, NeedsAsManyTitlesLinksAndDescriptionsAsPostsWhichAreNumberedFromZero) {
  const PageTexts one = {"x"}, all(11, "x");
  for (const auto build : {BuildPostPreviewPage, BuildPodcastPreviewPage}) {
    EXPECT_EQ(build(2, one, one, one, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(-1, {}, {}, {}, {}, {}, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(1, {}, one, one, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(1, one, {}, one, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(1, one, one, {}, one, one, true, kSkin, "euc-kr"), "");
    EXPECT_EQ(build(0, {}, {}, {}, {}, {}, true, kSkin, "euc-kr"), kHead + kTail);
    // Dates and feeds may be missing, here behind the first.
    const std::string page = build(11, all, all, all, one, one, true, kSkin, "euc-kr");
    for (const char* id : {"title-10", "disc-10", "pubdate-10", "scraplink-10",
                           "ID_BTN_RSSSCRAP?10", "ID_BTN_RSSADD?0"})
      EXPECT_NE(page.find('"' + std::string(id) + '"'), std::string::npos) << id;
    EXPECT_EQ(page.find("ID_BTN_RSSADD?1"), std::string::npos);
  }
}

TEST(PodcastPlayerPageTest, EmbedsTheMediaOnABlackPage) {
  EXPECT_EQ(BuildPodcastPlayerPage("title", "http://m.example/a.mp3", "text", "date", kSkin),
            Joined(R"--(<html><head></head>
<body style='margin-top:0px;margin-bottom:0px;margin-left:0px;margin-right:0px'>
<table cellpadding=0 cellspacing=0 bgcolor=black width=100% height=100%><tr>
<td align=center background="/s/player.gif" style='color:white'><table cellpadding=0 cellspacing=0><tr><td width="42">
<div align="center"><embed src="http://m.example/a.mp3"></div></td></table></td></tr></table></body></html>)--"));
}

TEST(CrashPageTest, SaysWhatHasHappenedAndLeadsBack) {
  const std::string page = BuildCrashPage("It <ended>", "Again & again", "http://h/?a=1&b=\"2\"");
  EXPECT_NE(page.find("<p>It &lt;ended></p><p><a href=\"http://h/?a=1&amp;b=&quot;2&quot;\">Again "
                      "&amp; again</a></p>"),
            std::string::npos)
      << page;
}

}  // namespace feedloom
