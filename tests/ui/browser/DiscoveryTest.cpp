// The feeds that web pages announce, from the page to the menu that offers them.

#include "files/RegistryKeys.h"
#include "ui/browser/BrowserFixture.h"

namespace feedloom {

struct Discovery : BrowserFixture {
  static std::string FeedLink(const std::string& href, const std::string& title = {}) {
    return "<link rel=alternate type='application/rss+xml' title='" + title + "' href='" + href +
           "'>";
  }
  bool FindsFeeds() const {
    return ComesTrue([&] { return Button(kTextAddTooltip).isEnabled(); });
  }
  // "title=address" of each.
  std::vector<std::string> Found() const {
    std::vector<std::string> all;
    for (const DiscoveredFeed& feed : frame_.state.discoveredFeeds)
      all.push_back(feed.title + "=" + feed.address);
    return all;
  }
};

using Feeds = std::vector<std::string>;

TEST_F(Discovery, TakesTheRssLinksOfThePageItselfAndNoOthers) {
  server_.Serve("/frame", FeedLink("/frame.xml"), "text/html");
  Visit("/a/b/page",
        "<head><LINK REL=Alternate TYPE='Application/RSS+XML' TITLE='One' HREF='/one.xml'>"
        "<link rel=alternate type='application/atom+xml' title='Atom' href='/atom.xml'>"
        "<link rel='alternate feed' type='application/rss+xml' href='/two.xml'>"
        "<link rel=stylesheet type='application/rss+xml' href='/three.xml'></head>"
        "<a rel=alternate type='application/rss+xml' href='/four.xml'>x</a>" +
            FeedLink("../up.xml") +
            "<iframe src='/frame'></iframe><img name=querySelectorAll><img name=domain><form "
            "id=location></form>");
  ASSERT_TRUE(FindsFeeds());
  EXPECT_EQ(Found(), (Feeds{"One=http://127.0.0.1/one.xml", "=" + server_.Url("/a/up.xml")}));
  EXPECT_EQ(frame_.state.discoveredFeeds[0].resolved, server_.Url("/one.xml"));
  Visit("/many", QByteArray::fromStdString(FeedLink("/f")).repeated(300).toStdString());
  EXPECT_TRUE(ComesTrue([&] { return Found().size() == 200; })) << "no menu shows more";
}

TEST_F(Discovery, OnlyAnotherWebPageForgetsThoseBefore) {
  Visit("/with", FeedLink("/one.xml"));
  ASSERT_TRUE(FindsFeeds());
  WaitForPage([&] {
    pane_.ShowPost(Post("post", "/post", FeedLink("/two.xml")));
    EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());  // at once
  });
  LetEngineFinish();
  EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());
  EXPECT_EQ(Found(), Feeds{"=http://127.0.0.1/one.xml"});
  Visit("/without", "none");
  EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());
  EXPECT_EQ(Found(), Feeds());
  WaitForPage([&] { Page().triggerAction(QWebEnginePage::Back); });
  WaitForPage([&] { Page().triggerAction(QWebEnginePage::Back); });
  EXPECT_TRUE(FindsFeeds());
}

TEST_F(Discovery, TheMenuOffersTheFeedsInOrderAndAddsTheChosenOne) {
  Visit("/page", "<link rel=alternate type='application/atom+xml' title='" +
                     std::string(20'000, 'x') + "' href='atom.xml'>" +
                     FeedLink("/one.xml", "Rock &amp; Roll") + FeedLink("/two.xml"));
  ASSERT_TRUE(FindsFeeds());
  Button(kTextAddTooltip).click();
  QMenu& menu = *pane_.findChild<QMenu*>();
  EXPECT_EQ(menu.actions()[1]->text(), "Rock && Roll");
  EXPECT_EQ(menu.actions()[2]->text(), "http://127.0.0.1/two.xml");
  const auto& atom = *menu.actions().back();
  EXPECT_TRUE(menu.actions()[3]->isSeparator() && atom.text() == QString(79, 'x') + "…");
  menu.actions()[2]->trigger();
  menu.close();
  EXPECT_TRUE(ComesTrue([&] { return !frame_.addedAddresses.empty(); }));
  EXPECT_EQ(frame_.addedAddresses, Feeds{"http://127.0.0.1/two.xml"});
  EXPECT_EQ(pane_.focusWidget(), &Button(kTextAddTooltip));
}

TEST_F(Discovery, OffersJsonFeedsToAHostThatReadsThem) {
  const std::string page = "<link rel=alternate type='application/feed+json' href='feed.json'>";
  Visit("/first", page + FeedLink("/one.xml"));
  ASSERT_TRUE(FindsFeeds());
  EXPECT_TRUE(frame_.state.discoveredOtherFeeds.empty());
  frame_.skin.SetHostValue(kValueLenient, kLenientOn);
  Visit("/second", page);
  ASSERT_TRUE(FindsFeeds());
  EXPECT_EQ(frame_.state.discoveredOtherFeeds.at(0).address, server_.Url("/feed.json"));
}

TEST(FeedLinks, AreResolvedByHowTheyBegin) {
  const QString deep = "https://example.com/a/b/c/page.html";
  for (const char* const row :
       {"/f > deep > https://h/f", "/f > http://h:8080/a/ > http://h/f",
        "/f > nowhere > http://h/f", "/f > ://x > ://h/f",
        "./f > deep > https://example.com/a/b/c/f", "../f > deep > https://example.com/a/b/f",
        "../x/../f > deep > https://example.com/a/b/x/../f",
        "../../ > deep > https://example.com/a/", "../../../f > x > /f", "f.xml > deep > f.xml",
        "?feed=rss > deep > ?feed=rss", ".. > deep > ..", " > deep > "}) {
    const QStringList parts = QString(row).replace("deep", deep).split(" > ");
    EXPECT_EQ(ResolveFeedLink(parts[0], "h", parts[1]), parts[2]) << row;
  }
  EXPECT_EQ(ResolveFeedLink("/f", "ftp://h", deep), "ftp://h/f");
}

}  // namespace feedloom
