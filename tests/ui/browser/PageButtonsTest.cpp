// The two buttons of a post's page, from the click to what is stored.
#include <algorithm>

#include "store/Cabinets.h"
#include "ui/browser/BrowserPaneFixture.h"

namespace feedloom {
namespace {

const QString kSaveButton = "a[href^=ID_BTN_RSSSCRAP]";
const QString kAddButton = "a[href^=ID_BTN_RSSADD]";

class PageButtons : public BrowserPaneFixture {
 protected:
  PageButtons() : cabinet_(AddCabinet(frame_.GetStore(), "Keep", 1)) {
    frame_.actions.chooseCabinet = [this] {
      ++asked_;
      return answer_;
    };
    answer_ = cabinet_;
  }

  bool SaysThatItIsSaved() {
    return ComesTrue([&] { return HostWasTold(HostText(kTextScrapFinished)); });
  }
  std::string Saved(const std::string& column) {
    return frame_.db.Value("select " + column + " from TB_SCRAP_POST");
  }

  int cabinet_ = 0;
  std::optional<int> answer_;
  int asked_ = 0;
};

TEST_F(PageButtons, SaveKeepsThePostAsPlainText) {
  PostRow post = Post("A <b>bold</b> title", "/post?a=1&b=2");
  post.description = "<p>One</p><p>Two &lt;three&gt;</p>";
  Show(post);
  Click(kSaveButton);
  ASSERT_TRUE(SaysThatItIsSaved());
  EXPECT_EQ(frame_.savedTo, std::vector<int>{cabinet_});
  EXPECT_EQ(Saved("scrap_post_title"), "A bold title");
  EXPECT_EQ(Saved("scrap_post_link"), server_.Url("/post?a=1&b=2"));
  EXPECT_EQ(Saved("scrap_post_pubDate"), "2008-05-01 10:00:00");
  EXPECT_EQ(Saved("scrap_post_desc").substr(0, 17), "One\n\nTwo <three>\n");
  EXPECT_EQ(Saved("scrap_post_scrapChannelID"), std::to_string(cabinet_));
  EXPECT_TRUE(Text().contains("One"));  // the page stays
}

TEST_F(PageButtons, APodcastsDateInViewIsSaved) {
  PostRow post = Post("Podcast", "/tone.wav");
  post.isPodcast = 1;
  Show(post);
  Click(kSaveButton);
  ASSERT_TRUE(SaysThatItIsSaved());
  EXPECT_EQ(Saved("trim(scrap_post_pubDate, char(10))"), "2008-05-01 10:00:00");
}

TEST_F(PageButtons, NothingIsSavedWithoutACabinet) {
  answer_.reset();
  Show(Post("post", "/post"));
  Click(kSaveButton);
  ASSERT_TRUE(ComesTrue([&] { return asked_ == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(frame_.savedTo, std::vector<int>());
  EXPECT_EQ(frame_.db.Count("TB_SCRAP_POST"), 0);
}

TEST_F(PageButtons, OneQuestionIsOpenAtATime) {
  int open = 0;
  int most = 0;
  frame_.actions.chooseCabinet = [&] {
    most = std::max(most, ++open);
    ++asked_;
    if (asked_ == 1) {
      Click(kSaveButton);
      for (int i = 0; i < 3; ++i) Evaluate("1");  // until the engine is through with the click
    }
    --open;
    return answer_;
  };
  Show(Post("post", "/post"));
  Click(kSaveButton);
  ASSERT_TRUE(SaysThatItIsSaved());
  EXPECT_EQ(most, 1);
  EXPECT_EQ(asked_, 1);
}

TEST_F(PageButtons, AWebPagePressesThemOnlyWhenTheUserClicks) {
  const std::string page = "<div id=title-0>t</div><a id=l href='ID_BTN_RSSSCRAP?0'>save</a>";
  Visit("/early", page + "<script>l.click()</script>");
  for (int i = 0; i < 3; ++i) Evaluate("1");
  Visit("/late", page);
  Evaluate("document.getElementById('l').click()");
  for (int i = 0; i < 3; ++i) Evaluate("1");
  EXPECT_EQ(asked_, 0);
  Click("#l");
  ASSERT_TRUE(SaysThatItIsSaved());
  EXPECT_EQ(Saved("scrap_post_title"), "t");
}

TEST_F(PageButtons, NoPostsLinkAndNoServerPressesThem) {
  pane_.SetMode(0);
  Show(Post("post", "/ID_BTN_RSSSCRAP?0"));  // as a page of its own
  EXPECT_TRUE(Text().contains("About post"));
  server_.Redirect("/moved", server_.Url("/ID_BTN_RSSSCRAP?0"));
  Show(Post("post", "/moved"));
  for (int i = 0; i < 3; ++i) Evaluate("1");
  EXPECT_EQ(asked_, 0);
}

TEST_F(PageButtons, AnAddressThatTheUserTypesPressesThem) {
  Show(Post("post", "/post"));
  Address().setText("ID_BTN_RSSSCRAP?0");
  Button(kTextGoTooltip).click();
  ASSERT_TRUE(SaysThatItIsSaved());
  EXPECT_EQ(Saved("scrap_post_title"), "post");
}

TEST_F(PageButtons, APostThatCannotBeStoredIsCountedAgain) {
  frame_.db.Sql("drop table TB_SCRAP_POST");
  Show(Post("post", "/post"));
  Click(kSaveButton);
  EXPECT_TRUE(ComesTrue([&] { return frame_.recounts == std::vector<bool>{true}; }));
}

TEST_F(PageButtons, AddAsksForTheFeedWithTheHostsSchemeWhereItHasNone) {
  frame_.state.listMode = ListMode::WebDirectory;
  PostRow post = Post("post", "/post");
  const std::pair<const char*, const char*> feeds[] = {
      {"https://feed.example/a?b=c&d", "https://feed.example/a?b=c&d"},
      {"feed.example/rss", "http://feed.example/rss"}};
  for (const auto& [feed, asked] : feeds) {
    frame_.addedAddresses.clear();
    post.feedUrl = feed;
    Show(post);
    Click(kAddButton);
    EXPECT_TRUE(ComesTrue([&] { return !frame_.addedAddresses.empty(); }));
    EXPECT_EQ(frame_.addedAddresses, std::vector<std::string>{asked});
  }
}

TEST_F(PageButtons, ALinkOfADescriptionMayActAsAButtonWhoseElementIsMissing) {
  PostRow post = Post("post", "/post");
  post.description = "<a id=l href='ID_BTN_RSSADD?7'>add</a>";
  Show(post);
  Click("#l");
  EXPECT_TRUE(ComesTrue([&] { return !frame_.addedAddresses.empty(); }));
  EXPECT_EQ(frame_.addedAddresses, std::vector<std::string>{"http://"});
}

TEST_F(PageButtons, TheLastElementOfANameCountsInWhateverCase) {
  PostRow post = Post("post", "/post");
  post.description = "<div id='SCRAPLINK-0' title='javascript:x'></div><span id='title-0'>s</span>";
  Show(post);
  Click(kSaveButton);
  ASSERT_TRUE(SaysThatItIsSaved());
  EXPECT_EQ(Saved("scrap_post_link"), "javascript:x");
  EXPECT_EQ(Saved("scrap_post_title"), "post");
}

TEST_F(PageButtons, ThePaneMayGoWhileADialogIsOpen) {
  auto* const pane = new CRSS_RightBottomContainer(frame_, nullptr);
  bool hasAsked = false;
  frame_.actions.chooseCabinet = [&]() -> std::optional<int> {
    hasAsked = true;
    delete pane;
    return std::nullopt;
  };
  pane->resize(400, 300);
  pane->show();
  QSignalSpy shown(pane, &CRSS_RightBottomContainer::PageShown);
  pane->ShowPost(Post("post", "/post"));
  ASSERT_TRUE(shown.wait(30'000));
  emit pane->findChild<CRSS_HtmlView*>()->ActionClicked({PageAction::SavePost, 0}, {});
  EXPECT_TRUE(hasAsked);
}

}  // namespace
}  // namespace feedloom
