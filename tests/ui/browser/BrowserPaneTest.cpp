// What the pane shows, and how its toolbar goes along.
#include "ui/browser/BrowserPaneFixture.h"

namespace feedloom {
namespace {

class BrowserPane : public BrowserPaneFixture {
 protected:
  // Goes to a page that is there and not loaded, since its picture does not come: a button of a
  // page above a link, each a hundred pixels high.
  void BeginSlowPage() {
    server_.Serve("/slow",
                  "<body style='margin:0'><a id=b style='display:block;height:100px' "
                  "href='ID_BTN_RSSADD?0'>x</a><a style='display:block;height:100px' "
                  "href='/next'>y</a><img src='/never'>",
                  "text/html");
    server_.Hang("/never");
    Address().setText(Url("/slow"));
    Button(kTextGoTooltip).click();
    ASSERT_TRUE(WasRequested("/never"));
    ASSERT_TRUE(ComesTrue([&] { return Page().url() == QUrl(Url("/slow")); }));
    // Before that a click on it would not count as the user's.
    ASSERT_TRUE(ComesTrue([&] { return Evaluate("typeof isUserActive") == "function"; }));
  }
};

TEST_F(BrowserPane, BeginsWithTheMainPageWithoutAnAddress) {
  ShowMainPage();
  EXPECT_TRUE(Text().contains("Feedloom"));
  EXPECT_EQ(Address().text(), "");
  EXPECT_FALSE(Button(kTextBackTooltip).isEnabled());
  EXPECT_FALSE(Button(kTextNextTooltip).isEnabled());
  EXPECT_FALSE(Button(kTextStopTooltip).isEnabled());
  EXPECT_FALSE(Button(kTextAddTooltip).isEnabled());
}

TEST_F(BrowserPane, APostShowsAsAPageOfItsOwn) {
  Show(Post("the post", "/post"));
  EXPECT_TRUE(Text().contains("About the post"));
  EXPECT_EQ(Evaluate("document.getElementById('scraplink-0').title"), Url("/post"));
  EXPECT_EQ(Evaluate("document.getElementById('rsspath-0')"), QVariant());
  EXPECT_EQ(Address().text(), "");
  EXPECT_EQ(server_.Requests("/post"), 0);
}

TEST_F(BrowserPane, AResultOfTheWebDirectoryHasTheButtonThatAddsItsFeed) {
  PostRow post = Post("found", "/post");
  post.feedUrl = "http://feed.example/";
  Show(post);
  EXPECT_EQ(Evaluate("document.getElementById('rsspath-0')"), QVariant());
  frame_.state.listMode = ListMode::WebDirectory;
  Show(post);
  EXPECT_EQ(Evaluate("document.getElementById('rsspath-0').title"), "http://feed.example/");
}

TEST_F(BrowserPane, InTheOriginalModeAPostShowsAsItsWebPage) {
  server_.Serve("/post", "the web page", "text/html");
  pane_.SetMode(0);
  pane_.ShowPost(Post("the post", "/post"));
  EXPECT_EQ(Address().text(), Url("/post"));  // at once
  ASSERT_TRUE(QSignalSpy(&pane_, &CRSS_RightBottomContainer::PageShown).wait(30'000));
  EXPECT_EQ(Text(), "the web page");
  EXPECT_EQ(Address().text(), Url("/post"));
}

TEST_F(BrowserPane, InTheOriginalModeALinkThatIsNoWebAddressShowsThePostsPage) {
  pane_.SetMode(0);
  PostRow post = Post("the post", "/post");
  for (const char* link : {"file:///etc/hostname", "", "javascript:alert(1)"}) {
    post.link = link;
    Show(post);
    EXPECT_TRUE(Text().contains("About the post")) << link;
  }
}

TEST_F(BrowserPane, AnotherModeRedrawsThePostThatIsOnDisplayAndNothingElse) {
  server_.Serve("/story", "<html><body>The story</body></html>", "text/html");
  server_.Redirect("/moved", "/story");
  ShowMainPage();
  pane_.SetMode(0);
  pane_.Redraw();
  Show(Post("Moved", "/moved"));
  EXPECT_EQ(Text(), "The story");
  pane_.SetMode(1);
  WaitForPage([&] { pane_.Redraw(); });
  EXPECT_TRUE(Text().contains("About Moved"));
  Visit("/elsewhere", "<html><body>Elsewhere</body></html>");
  pane_.SetMode(0);
  pane_.Redraw();
  PressForPage(kTextBackTooltip);  // the first page that comes
  EXPECT_TRUE(Text().contains("About Moved"));
  WaitForPage([&] { pane_.Redraw(); });
  EXPECT_EQ(Text(), "The story");
}

TEST_F(BrowserPane, BackAndForwardBringEarlierPagesAgain) {
  Show(Post("one", "/1"));
  Visit("/web", "a web page");
  Show(Post("two", "/2"));
  EXPECT_EQ(Page().history()->count(), 3);
  PressForPage(kTextBackTooltip);
  EXPECT_EQ(Text(), "a web page");
  EXPECT_EQ(Address().text(), Url("/web"));
  PressForPage(kTextBackTooltip);
  EXPECT_TRUE(Text().contains("About one"));
  EXPECT_EQ(Address().text(), "");
  EXPECT_FALSE(Button(kTextBackTooltip).isEnabled());
  PressForPage(kTextNextTooltip);
  PressForPage(kTextNextTooltip);
  EXPECT_TRUE(Text().contains("About two"));
  EXPECT_FALSE(Button(kTextNextTooltip).isEnabled());
}

TEST_F(BrowserPane, ReloadAsksForThePageAgain) {
  Visit("/web", "old");
  server_.Serve("/web", "new", "text/html");
  PressForPage(kTextRefreshTooltip);
  EXPECT_EQ(Text(), "new");
  Show(Post("one", "/1"));
  PressForPage(kTextRefreshTooltip);
  EXPECT_TRUE(Text().contains("About one"));
}

TEST_F(BrowserPane, StopEndsALoadThatTakesItsTime) {
  server_.Hang("/never");
  Show(Post("one", "/1"));
  Address().setText(Url("/never"));
  Button(kTextGoTooltip).click();
  ASSERT_TRUE(WasRequested("/never"));
  EXPECT_TRUE(Button(kTextStopTooltip).isEnabled());
  EXPECT_EQ(Address().text(), Url("/never"));
  PressForPage(kTextStopTooltip);
  EXPECT_FALSE(Button(kTextStopTooltip).isEnabled());
  EXPECT_TRUE(Text().contains("About one"));
  EXPECT_EQ(Address().text(), "");
}

TEST_F(BrowserPane, GoCompletesTheAddress) {
  server_.Serve("/web", "a web page", "text/html");
  GoTo(Url("/web").remove("http://"));
  EXPECT_EQ(Text(), "a web page");
  EXPECT_EQ(Address().text(), Url("/web"));
  EXPECT_FALSE(Address().hasFocus());
}

TEST_F(BrowserPane, GoWithoutAnAddressOrWithAnImpossibleOneStays) {
  Visit("/web", "a web page");
  Address().clear();
  Button(kTextGoTooltip).click();
  EXPECT_FALSE(Button(kTextStopTooltip).isEnabled());
  frame_.messages.clear();
  for (const char* typed : {"javascript:document.body.innerText='run'", "chrome://crash", "a b"}) {
    Address().setText(typed);
    Button(kTextGoTooltip).click();
    EXPECT_FALSE(Button(kTextStopTooltip).isEnabled()) << typed;
  }
  EXPECT_EQ(frame_.messages.size(), 3u);
  EXPECT_EQ(Text(), "a web page");
}

TEST_F(BrowserPane, WhatTheUserTypesIsNotOverwrittenByAPageThatArrives) {
  server_.Serve("/web", "a web page", "text/html");
  Address().setFocus();
  QTest::keyClicks(&Address(), "exam");
  pane_.SetMode(1);
  Show(Post("one", "/1"));
  EXPECT_EQ(Address().text(), "exam");
}

TEST_F(BrowserPane, StatusTextsGoToTheHostFromANavigationToItsEnd) {
  BeginSlowPage();
  QTest::mouseMove(&Surface(), {50, 150});
  EXPECT_TRUE(ComesTrue([&] { return HostWasTold(server_.Url("/next")); }));
  EXPECT_FALSE(HostWasTold(HostText(kTextPageLoaded)));

  WaitForPage([&] { server_.Fail("/never", 404); });
  EXPECT_EQ(frame_.messages.back(), HostText(kTextPageLoaded));
  frame_.messages.clear();
  QSignalSpy hovered(&Page(), &QWebEnginePage::linkHovered);
  for (const QPoint place : {QPoint(50, 250), QPoint(60, 160)}) {
    QTest::mouseMove(&Surface(), place);
    EXPECT_TRUE(hovered.wait(20'000));
  }
  EXPECT_EQ(frame_.messages, std::vector<std::string>());
}

TEST_F(BrowserPane, AButtonOfThePageEndsTheStatusTexts) {
  BeginSlowPage();
  Click("#b");
  ASSERT_TRUE(ComesTrue([&] { return !frame_.addedAddresses.empty(); }));
  frame_.messages.clear();
  QSignalSpy hovered(&Page(), &QWebEnginePage::linkHovered);
  QTest::mouseMove(&Surface(), {50, 150});
  ASSERT_TRUE(ComesTrue([&] { return !hovered.empty(); }));
  EXPECT_FALSE(HostWasTold(server_.Url("/next")));
}

TEST_F(BrowserPane, APageThatTheModuleWritesSaysNothingToTheHost) {
  Show(Post("one", "/1"));
  EXPECT_EQ(frame_.messages, std::vector<std::string>());
}

TEST_F(BrowserPane, APageThatFailsSaysSo) {
  server_.Fail("/gone", 404);
  GoTo(Url("/gone"));
  EXPECT_EQ(frame_.messages.back(), HostText(kTextPageNotLoaded));
}

TEST_F(BrowserPane, PicturesInTheWebCanBeKeptOut) {
  PostRow post = Post("pictures", "/1");
  post.description = "<img src='" + server_.Url("/picture.png") + "'>";
  Show(post);
  EXPECT_TRUE(WasRequested("/picture.png"));
  frame_.showsRemoteImages = false;
  post.description = "<img src='" + server_.Url("/hidden.png") + "'>";
  Show(post);
  Text();
  EXPECT_EQ(server_.Requests("/hidden.png"), 0);
}

TEST_F(BrowserPane, KeysDoWhatTheButtonsDo) {
  const auto press = [&](QKeySequence keys) {
    pane_.setFocus();
    QTest::keySequence(&Surface(), keys);
  };
  Visit("/1", "one");
  Visit("/2", "two");
  WaitForPage([&] { press(Qt::ALT | Qt::Key_Left); });
  EXPECT_EQ(Text(), "one");
  WaitForPage([&] { press(Qt::ALT | Qt::Key_Right); });
  EXPECT_EQ(Text(), "two");
  press(Qt::CTRL | Qt::Key_L);
  EXPECT_TRUE(Address().hasFocus());
  QTest::keyClicks(&Address(), "elsewhere");
  QTest::keyClick(&Address(), Qt::Key_Escape);
  EXPECT_EQ(Address().text(), Url("/2"));
  server_.Hang("/never");
  Address().setText(Url("/never"));
  Button(kTextGoTooltip).click();
  ASSERT_TRUE(WasRequested("/never"));
  WaitForPage([&] { press(Qt::Key_Escape); });
  EXPECT_FALSE(Button(kTextStopTooltip).isEnabled());
  EXPECT_EQ(frame_.messages.back(), "");
}

TEST_F(BrowserPane, APageMayLookLikeItIsAskingAndIsToldNo) {
  Visit("/web", "<script>alert(1); document.write(confirm('?') + ' ' + prompt('?'))</script>");
  EXPECT_EQ(Text(), "false null");
}

TEST_F(BrowserPane, AWindowOfAPagesOwnOpensInItsPlaceWhenTheUserClicks) {
  server_.Serve("/next", "the next page", "text/html");
  Visit("/web",
        "<a id=l onclick=\"window.open('/next')\">x</a><a id=e onclick=\"window.open('')\">y</a>"
        "<script>open('/next')</script>");
  EXPECT_EQ(Text(), "xy");
  Click("#e");
  EXPECT_EQ(Text(), "xy");
  ClickForPage("#l");
  EXPECT_EQ(Text(), "the next page");
}

}  // namespace
}  // namespace feedloom
