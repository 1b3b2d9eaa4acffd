// What the pane shows, and how its toolbar and the host's status text go along.
#include <QWebEngineHistory>

#include "look/PaneFrame.h"
#include "ui/browser/BrowserFixture.h"

namespace feedloom {

struct BrowserPane : BrowserFixture {
  // The enabled ones of Back, Next, Stop and Feed, and the address.
  QString Bar() const {
    QString bar;
    for (const char* key : {kTextBackTooltip, kTextNextTooltip, kTextStopTooltip, kTextAddTooltip})
      bar += Button(key).isEnabled() ? "+" : "-";
    return bar + Address().text().replace(Url(""), "");
  }
  // The text of the page that comes, and the bar then.
  QString ShownBy(const std::function<void()>& begin) {
    WaitForPage(begin);
    return Text().trimmed() + " " + Bar();
  }
  QString ShownBy(const char* key) {
    return ShownBy([&] { Button(key).click(); });
  }
};

TEST_F(BrowserPane, APostCanNeitherStyleThePageNorPushItAsideNorCoverItsHeading) {
  PostRow post = Post("post", "/post");
  post.ownerTitle = "A \"channel\"";
  post.description =
      "<style>td{display:none}</style><div style='width:9000px'>wide</div><pre>" +
      std::string(9000, 'x') +
      "</pre><div id='cover' style='position:fixed;top:0;left:0;width:100%;height:100%'></div>";
  Show(post);
  EXPECT_EQ(Evaluate("document.documentElement.scrollWidth <= innerWidth"), true);
  EXPECT_EQ(Evaluate("getComputedStyle(document.querySelector('td')).display"), "table-cell");
  EXPECT_EQ(Evaluate("(t => document.elementFromPoint(t.x, t.y).closest('[id]').id)"
                     "(document.getElementById('title-0').getBoundingClientRect())"),
            "title-0");
  EXPECT_EQ(Evaluate("getComputedStyle(document.getElementById('pubdate-0'), '::after').content"),
            R"("2008-05-01 10:00:00 · A \"channel\"")");
}

TEST_F(BrowserPane, TheMainPageAndAPostAreGeneratedAndTheFeedIsShownOnlyInTheWebDirectory) {
  PostRow post = Post(Korean("한글 똠방각하"), "/post");
  post.feedUrl = "http://feed.example/";
  Show(post);
  EXPECT_TRUE(Text().contains("About 한글 똠방각하"));
  EXPECT_EQ(Evaluate("document.getElementById('rsspath-0')"), QVariant());
  EXPECT_EQ(server_.Requests("/post") + std::ssize(frame_.messages), 0);
  frame_.state.listMode = ListMode::WebDirectory;
  ASSERT_TRUE(frame_.registry.WriteDword(kModuleKey, kValueBlockRemoteImages, 1));
  Show(post);
  EXPECT_EQ(Evaluate("document.getElementById('rsspath-0').title"), "http://feed.example/");
  EXPECT_TRUE(Evaluate("document.head.innerHTML").toString().contains("img-src feedloom: data:\""));
  WaitForPage([&] { pane_.ShowMainPage(); });
  EXPECT_TRUE(Text().contains("Feedloom") && Address().text().isEmpty());
}

TEST_F(BrowserPane, AnotherModeRedrawsThePostThatIsOnDisplayAndNothingElse) {
  server_.Serve("/story", "The story", "text/html");
  server_.Redirect("/moved", "/story");
  pane_.SetMode(0);
  pane_.Redraw();
  EXPECT_EQ(ShownBy([&] { pane_.ShowPost(Post("Moved", "/moved")); }), "The story ----/story");
  pane_.SetMode(1);
  EXPECT_TRUE(ShownBy([&] { pane_.Redraw(); }).contains("About Moved"));
  pane_.Redraw();  // the mode is the same
  Visit("/elsewhere", "Elsewhere");
  pane_.SetMode(0);
  pane_.Redraw();
  EXPECT_TRUE(ShownBy(kTextBackTooltip).contains("About Moved"));  // the first page that comes
  PostRow post = Post("the post", "/post");
  for (const char* link : {"file:///etc/hostname", "", "javascript:alert(1)"}) {
    post.link = link;  // no web page of its own
    Show(post);
    EXPECT_TRUE(Text().contains("About the post")) << link;
  }
}

TEST_F(BrowserPane, BackForwardAndReloadBringPagesAgainAndScriptsRunInWebPagesOnly) {
  const std::string script = "<p id=p>still</p><script>p.textContent = 'ran'</script>";
  Write(QByteArray::fromStdString(script + "<!--" + std::string(5 << 20, 'x') + "-->"));
  EXPECT_EQ(Text().trimmed(), "still");
  view_.WritePageToBrowser({});  // nothing to show
  Visit("/web", script);
  Write("two");
  EXPECT_EQ(Page().history()->count(), 3);
  EXPECT_EQ(ShownBy(kTextBackTooltip), "ran ++--/web");
  EXPECT_EQ(ShownBy(kTextBackTooltip), "still -+--");
  EXPECT_EQ(ShownBy(kTextNextTooltip), "ran ++--/web");
  server_.Serve("/web", "new", "text/html");
  EXPECT_EQ(ShownBy(kTextRefreshTooltip), "new ++--/web");
  EXPECT_EQ(ShownBy(kTextNextTooltip), "two +---");
  EXPECT_EQ(ShownBy(kTextRefreshTooltip), "two +---");
}

TEST_F(BrowserPane, GoCompletesTheAddressAndRefusesAnImpossibleOne) {
  server_.Serve("/web", "a web page", "text/html");
  Address().setFocus();
  Address().setText(Url("/web").remove("http://"));
  EXPECT_EQ(ShownBy([&] { QTest::keyClick(&Address(), Qt::Key_Return); }), "a web page ----/web");
  for (const char* typed : {"", "javascript:document.body.innerText='run'", "chrome://crash"}) {
    frame_.messages.clear();
    Go(typed);
    EXPECT_FALSE(view_.IsLoading()) << typed;
    EXPECT_EQ(frame_.messages.size(), *typed == 0 ? 0u : 1u) << typed;
  }
  EXPECT_EQ(Text(), "a web page");
  Address().setFocus();
  QTest::keyClicks(&Address(), "exam");
  Visit("/other", "another");  // does not overwrite what the user is typing
  EXPECT_TRUE(Address().text().endsWith("exam"));
}

TEST_F(BrowserPane, APageThatCannotBeLoadedCountsAsShownAndSaysSo) {
  server_.Fail("/gone", 404);
  for (const QString& address :
       {QString("feedloom://page/9"), QString("http://127.0.0.1:1"), Url("/gone")})
    WaitForPage([&] { view_.Navigate(address); });
  EXPECT_EQ(frame_.messages.back(), HostText(kTextPageNotLoaded));
}

TEST_F(BrowserPane, KeysDoWhatTheButtonsDo) {
  Visit("/1", "one");
  Visit("/2", "two");
  EXPECT_EQ(ShownBy([&] { Press(Qt::ALT | Qt::Key_Left); }), "one -+--/1");
  EXPECT_EQ(ShownBy([&] { Press(Qt::ALT | Qt::Key_Right); }), "two +---/2");
  Press(Qt::CTRL | Qt::Key_L);
  QTest::keyClicks(&Address(), "elsewhere");
  QTest::keyClick(&Address(), Qt::Key_Escape);
  EXPECT_EQ(Bar(), "+---/2");
  server_.Hang("/never");
  Go(Url("/never"));
  ASSERT_TRUE(WasRequested("/never"));
  EXPECT_EQ(Bar(), "+-+-/never");
  const auto isSaid = [&] { return IsLastMessageWith(HostText(kTextPageLoading).substr(0, 6)); };
  EXPECT_TRUE(ComesTrue(isSaid));
  EXPECT_EQ(ShownBy([&] { Press(Qt::Key_Escape); }), "two +---/2");
  EXPECT_EQ(frame_.messages.back(), "");
  Go(Url("/never"));
  EXPECT_TRUE(ComesTrue(isSaid));
  WaitForPage([&] { pane_.ShowPost(Post("a post", "/post")); });
  EXPECT_EQ(frame_.messages.back(), "");
}

TEST_F(BrowserPane, AButtonWithNothingToDoSaysWhyUntilThereIsSomething) {
  auto& feed = Button(kTextAddTooltip);
  toolbar_.Enable(kBrowserFeed, false);
  EXPECT_EQ(feed.toolTip() + feed.accessibleName(),
            "이 페이지가 알리는 채널이 없습니다.이 채널 추가");
  toolbar_.Enable(kBrowserFeed, true);
  EXPECT_EQ(feed.toolTip() + feed.accessibleDescription(), "이 채널 추가");
}

TEST_F(BrowserPane, TabWalksTheBarInReadingOrderAndAHeldKeyDoesNothingInTheAddress) {
  for (const auto button : {kBrowserBack, kBrowserNext, kBrowserStop, kBrowserFeed})
    toolbar_.Enable(button, true);
  QSignalSpy commands(&toolbar_, &CRSS_RightBottomToolBarWnd::Commanded);
  QSignalSpy leavings(&toolbar_, &CRSS_RightBottomToolBarWnd::AddressLeft);
  Button(kTextBackTooltip).setFocus(Qt::TabFocusReason);
  QStringList walked;
  for (int i = 0; i < 7; ++i) {
    walked << QApplication::focusWidget()->accessibleName();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(walked.join(", "), "뒤로, 앞으로, 중지, 페이지 새로 고침, 주소, 이동, 이 채널 추가");
  toolbar_.FocusAddress();
  for (const int key : {Qt::Key_Return, Qt::Key_Escape}) {
    QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QApplication::sendEvent(&Address(), &held);
  }
  EXPECT_EQ(commands.count() + leavings.count(), 0);
}

TEST_F(BrowserPane, ARingShowsThatThePageHasTheKeyboard) {
  const int x = ViewArea(pane_.rect(), toolbar_.Height()).left() - 2;
  const auto hasRing = [&] {
    return pane_.grab().toImage().pixelColor(x, 200) == pane_.palette().color(QPalette::Link);
  };
  Surface().setFocus();
  EXPECT_TRUE(hasRing());
  toolbar_.FocusAddress();
  EXPECT_FALSE(hasRing());
}

TEST_F(BrowserPane, KeysChangeThePagesSizeWithinItsLimits) {
  Visit("/1", "one");
  const std::tuple<QKeySequence, int, double> kKeys[] = {
      {Qt::CTRL | Qt::Key_Plus, 2, 1.25},   {Qt::CTRL | Qt::Key_Plus, 20, 5},
      {Qt::CTRL | Qt::Key_Minus, 1, 4},     {Qt::CTRL | Qt::Key_0, 1, 1},
      {Qt::CTRL | Qt::Key_Minus, 20, 0.25}, {Qt::CTRL | Qt::Key_Plus, 1, 0.33}};
  for (const auto& [key, times, factor] : kKeys) {
    for (int i = 0; i < times; ++i) Press(key);
    EXPECT_DOUBLE_EQ(Page().zoomFactor(), factor);
  }
}

TEST_F(BrowserPane, APagesOwnDialogsAreToldNo) {
  Visit("/web", "<script>alert(1); document.write(confirm('?') + ' ' + prompt('?'))</script>");
  EXPECT_EQ(Text(), "false null");
}

TEST_F(BrowserPane, AWindowOfAPagesOwnOpensInItsPlaceWhenTheUserClicks) {
  server_.Serve("/next", "the next page", "text/html");
  std::vector<QUrl> outside;
  frame_.services.openExternally = [&](const QUrl& url) { return outside.push_back(url), true; };
  Visit("/web",
        "<a id=l onclick=\"window.open('/next')\">x</a><a id=e onclick=\"window.open('')\">y</a>"
        "<a id=m onclick=\"window.open('mailto:a@h')\">z</a><script>window.open('/next')</script>");
  Click("#e");
  Click("#m");
  EXPECT_TRUE(ComesTrue([&] { return !outside.empty(); }));
  EXPECT_EQ(Text(), "xyz");
  EXPECT_EQ(ShownBy([&] { Click("#l"); }), "the next page +---/next");
}

// The page is kept from answering until another one has been asked for.
TEST_F(BrowserPane, AnAnswerOfAPageThatWasLeftIsDropped) {
  const std::string hold = "x = new XMLHttpRequest(); x.open('GET', '/held', false); x.send()";
  const std::string page =
      "<link rel=alternate type='application/rss+xml' href='/feed'><div id=title-0>t</div>";
  QSignalSpy acted(&view_, &CRSS_HtmlView::ActionClicked);
  QSignalSpy found(&view_, &CRSS_HtmlView::FeedsFound);
  QSignalSpy completed(&view_, &CRSS_HtmlView::Completed);
  const auto leave = [&] {
    view_.Navigate(Url("/next"));
    EXPECT_TRUE(ComesTrue([&] { return view_.IsLoading(); }));
    WaitForPage([&] { server_.Serve("/held", "", "text/plain"); });
    LetEngineFinish();
  };
  server_.Serve("/next", "next", "text/html");
  server_.Hang("/held");
  server_.Serve("/web",
                page + "<script>c = new MessageChannel(); c.port1.onmessage = () => {" + hold +
                    "}; onload = () => c.port2.postMessage(0)</script>",
                "text/html");
  view_.Navigate(Url("/web"));
  EXPECT_TRUE(ComesTrue([&] { return completed.count() == 1; }));
  EXPECT_TRUE(WasRequested("/held"));
  leave();
  EXPECT_EQ(found.count(), 1);  // of the next page
  Visit("/web", page);
  server_.Hang("/held");
  Page().runJavaScript(QString::fromStdString(hold));
  view_.Act({PageAction::SavePost, 0});
  leave();
  EXPECT_EQ(acted.count(), 0);
}

TEST_F(BrowserPane, TheAddresssHostStandsOutAndItsEndIsInViewUnlessTheUserIsInTheBox) {
  const QString evil = "http://www.example.com." + QString("x.").repeated(99) + "evil.example";
  view_.setFocus();
  Address().setText("http://h.example/path");
  const QImage plain = Address().grab().toImage();
  toolbar_.SetAddress(QUrl("http://user@h.example/path"));
  EXPECT_EQ(Address().text(), "http://h.example/path");
  EXPECT_NE(Address().grab().toImage(), plain);
  toolbar_.SetAddress(QUrl(evil + "/" + QString(300, 'y')));
  EXPECT_EQ(Address().cursorPosition(), evil.size());
  toolbar_.SetAddress(QUrl("http://h.example/" + QString(300, 'y')));
  EXPECT_EQ(Address().cursorPosition(), 0);
}

}  // namespace feedloom
