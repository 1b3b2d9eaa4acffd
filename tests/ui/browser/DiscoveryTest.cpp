// The feeds that web pages announce, and the menu that offers them.
#include "ui/browser/BrowserPaneFixture.h"

namespace feedloom {
namespace {

class Discovery : public BrowserPaneFixture {
 protected:
  // A page that announces these, in its head.
  static std::string PageWith(const std::string& links) {
    return "<html><head>" + links + "</head><body>a page</body></html>";
  }
  static std::string FeedLink(const std::string& title, const std::string& href) {
    return "<link rel=alternate type='application/rss+xml' title='" + title + "' href='" + href +
           "'>";
  }
  bool FindsFeeds() {
    return ComesTrue([&] { return Button(kTextAddTooltip).isEnabled(); });
  }
  std::vector<std::string> Addresses() const {
    std::vector<std::string> addresses;
    for (const DiscoveredFeed& feed : frame_.state.discoveredFeeds)
      addresses.push_back(feed.address);
    return addresses;
  }
  QMenu& OpenMenu() {
    Button(kTextAddTooltip).click();
    return *pane_.findChild<QMenu*>();
  }
};

TEST_F(Discovery, TakesTheRssLinksInWhateverCaseAndNoOthers) {
  Visit("/a/b/page",
        PageWith("<LINK REL=Alternate TYPE='Application/RSS+XML' TITLE='One' HREF='/one.xml'>"
                 "<link rel=alternate type='application/atom+xml' title='Atom' href='/atom.xml'>"
                 "<link rel='alternate feed' type='application/rss+xml' href='/two.xml'>"
                 "<link rel=stylesheet type='application/rss+xml' href='/three.xml'>"
                 "<a rel=alternate type='application/rss+xml' href='/four.xml'>x</a>") +
            "<link rel=alternate type='application/rss+xml' href='bare.xml'>");
  ASSERT_TRUE(FindsFeeds());
  EXPECT_EQ(Addresses(), (std::vector<std::string>{"http://127.0.0.1/one.xml", "bare.xml"}));
  EXPECT_EQ(frame_.state.discoveredFeeds[0].title, "One");
  EXPECT_EQ(frame_.state.discoveredFeeds[1].title, "");
}

TEST_F(Discovery, ResolvesWhatIsRelativeToThePage) {
  Visit("/a/b/page", PageWith(FeedLink("1", "./one.xml") + FeedLink("2", "../../two.xml") +
                              FeedLink("3", "https://feed.example/three.xml")));
  ASSERT_TRUE(FindsFeeds());
  EXPECT_EQ(Addresses(),
            (std::vector<std::string>{server_.Url("/a/b/one.xml"), server_.Url("/two.xml"),
                                      "https://feed.example/three.xml"}));
}

TEST_F(Discovery, APageWithoutFeedsForgetsThoseBefore) {
  Visit("/with", PageWith(FeedLink("1", "/one.xml")));
  ASSERT_TRUE(FindsFeeds());
  Visit("/without", PageWith(""));
  EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());
  EXPECT_EQ(Addresses(), std::vector<std::string>());
  PressForPage(kTextBackTooltip);
  EXPECT_TRUE(FindsFeeds());
}

TEST_F(Discovery, APageThatTheModuleWritesOffersNoneAndLeavesTheListAlone) {
  Visit("/with", PageWith(FeedLink("1", "/one.xml")));
  ASSERT_TRUE(FindsFeeds());
  PostRow post = Post("post", "/post");
  post.description = FeedLink("2", "/two.xml");
  pane_.ShowPost(post);
  EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());  // at once
  ASSERT_TRUE(QSignalSpy(&pane_, &CRSS_RightBottomContainer::PageShown).wait(30'000));
  Text();
  EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());
  EXPECT_EQ(Addresses(), std::vector<std::string>{"http://127.0.0.1/one.xml"});
}

TEST_F(Discovery, FramesInsideAPageAnnounceNothing) {
  server_.Serve("/frame", PageWith(FeedLink("1", "/one.xml")), "text/html");
  Visit("/page", PageWith("") + "<iframe src='/frame'></iframe>");
  Text();
  EXPECT_EQ(Addresses(), std::vector<std::string>());
}

TEST_F(Discovery, AHostilePageAnnouncesItsFeedsAllTheSame) {
  Visit("/page", PageWith(FeedLink("1", "/one.xml")) +
                     "<img name=querySelectorAll><img name=domain><form id=location></form>");
  ASSERT_TRUE(FindsFeeds());
  EXPECT_EQ(Addresses(), std::vector<std::string>{"http://127.0.0.1/one.xml"});
}

TEST_F(Discovery, TheMenuOffersTheFeedsInOrderAndAddsTheChosenOne) {
  frame_.actions.addChannel = [](const std::string&, const std::string&) {};
  Visit("/page", PageWith(FeedLink("Rock &amp; Roll", "/one.xml") + FeedLink("", "/two.xml")));
  ASSERT_TRUE(FindsFeeds());
  QMenu& menu = OpenMenu();
  ASSERT_EQ(menu.actions().size(), 2);
  EXPECT_EQ(menu.actions()[0]->text(), "Rock && Roll");
  EXPECT_EQ(menu.actions()[1]->text(), "http://127.0.0.1/two.xml");
  menu.actions()[1]->trigger();
  menu.close();
  EXPECT_TRUE(ComesTrue([&] { return !frame_.addedAddresses.empty(); }));
  EXPECT_EQ(frame_.addedAddresses, std::vector<std::string>{"http://127.0.0.1/two.xml"});
  EXPECT_EQ(pane_.focusWidget(), &Button(kTextAddTooltip));
}

TEST_F(Discovery, NothingCanBeChosenWhereNothingCanBeAdded) {
  Visit("/page", PageWith(FeedLink("1", "/one.xml")));
  ASSERT_TRUE(FindsFeeds());
  EXPECT_FALSE(OpenMenu().actions()[0]->isEnabled());
}

}  // namespace
}  // namespace feedloom
