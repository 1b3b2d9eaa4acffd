// What the user does with a page: its two buttons, the pane's menu and keys, mail addresses and
// media files.
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPrinter>

#include "store/Cabinets.h"
#include "ui/Commands.h"
#include "ui/browser/BrowserFixture.h"
#include "ui/browser/MediaBar.h"

namespace feedloom {

const QString kSaveButton = "a[href^=ID_BTN_RSSSCRAP]";
using Texts = std::vector<std::string>;

struct PageCommandsTest : BrowserFixture {
  PageCommandsTest() {
    frame_.services.chooseCabinet = [this] {
      if (++asked_; whileAsked_) whileAsked_();
      return cabinet_;
    };
    frame_.services.openExternally = [this](const QUrl& url) {
      outside_.push_back(url.toString().toStdString());
      return opens_;
    };
  }

  // Presses the button. Returns what is saved then, the fields between bars.
  std::string SavedBy(const std::function<void()>& press) {
    frame_.messages.clear();
    press();
    EXPECT_TRUE(ComesTrue([&] { return IsLastMessageWith(HostText(kTextScrapFinished)); }));
    return frame_.db.Value(
        "select scrap_post_title || '|' || scrap_post_link || '|' || trim(scrap_post_pubDate, "
        "char(10)) || '|' || trim(scrap_post_desc, char(10)) || '|' || scrap_post_scrapChannelID "
        "from TB_SCRAP_POST order by rowid desc");
  }
  // Opens the menu on an element, chooses the command, and returns the enabled ones.
  std::vector<int> Menu(const QString& selector, int chosen = 0) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, PlaceOf(selector), QCursor::pos());
    QTest::mouseClick(&Surface(), Qt::RightButton, {}, event.pos());
    QApplication::sendEvent(&Surface(), &event);
    EXPECT_TRUE(ComesTrue([&] { return pane_.findChild<QMenu*>() != nullptr; }));
    std::vector<int> enabled;
    for (QAction* const action : pane_.findChild<QMenu*>()->actions()) {
      if (!action->isSeparator() && action->isEnabled()) enabled.push_back(action->data().toInt());
      if (chosen != 0 && action->data().toInt() == chosen) action->trigger();
    }
    delete pane_.findChild<QMenu*>();
    QCoreApplication::processEvents();  // the command comes when the menu has closed
    return enabled;
  }
  static QString Clipboard() { return QGuiApplication::clipboard()->text(); }

  std::optional<int> cabinet_ = AddCabinet(frame_.GetStore(), "Keep", 1);
  std::function<void()> whileAsked_;
  int asked_ = 0;
  Texts outside_;
  bool opens_ = true;
};

TEST_F(PageCommandsTest, SaveKeepsThePostAsPlainTextAndThePageStays) {
  PostRow post = Post("A <b>bold</b> title", "/post?a=1&b=2");
  post.description = "<p>One</p><p>Two &lt;three&gt;</p>";
  const std::string saved = "A bold title|" + post.link +
                            "|2008-05-01 10:00:00|One\n\nTwo <three>|" + std::to_string(*cabinet_);
  for (const int isPodcast : {0, 1}) {
    post.isPodcast = isPodcast;
    Show(post);
    EXPECT_EQ(SavedBy([&] { Click(kSaveButton); }), saved);
  }
  EXPECT_EQ(frame_.savedTo, std::vector<int>({*cabinet_, *cabinet_}));
  EXPECT_EQ(frame_.recounts.size(), 0u);
  frame_.db.Sql("drop table TB_SCRAP_POST");
  Click(kSaveButton);
  EXPECT_TRUE(ComesTrue([&] { return frame_.recounts == std::vector<bool>{true}; }));
}

TEST_F(PageCommandsTest, OnlyTheUserPressesButtonsNoPageNoPostsLinkAndNoServer) {
  const std::string page = "<div id=title-0>t</div><a id=l href='ID_BTN_RSSSCRAP?0'>save</a>";
  Visit("/early", page + "<script>l.click()</script>");
  LetEngineFinish();
  Visit("/late", page);
  Evaluate("document.getElementById('l').click()");
  LetEngineFinish();
  pane_.SetMode(0);
  server_.Redirect("/moved", server_.Url("/ID_BTN_RSSSCRAP?0"));
  Show(Post("post", "/moved"));
  Show(Post("post", "/ID_BTN_RSSSCRAP?0"));
  EXPECT_TRUE(Text().contains("About post"));
  EXPECT_EQ(asked_, 0);
  EXPECT_TRUE(SavedBy([&] { Go("ID_BTN_RSSSCRAP?0"); }).starts_with("post|"));
  Visit("/late", page);
  EXPECT_TRUE(SavedBy([&] { Click("#l"); }).starts_with("t|"));
}

TEST_F(PageCommandsTest, AddAsksForTheFeedWithTheHostsSchemeWhereItHasNone) {
  frame_.state.listMode = ListMode::WebDirectory;
  // A link of the description may act as a button, whose element is missing.
  PostRow post = Post("post", "/post", "<a href='ID_BTN_RSSADD?7'>add</a>");
  for (const char* feed : {"https://feed.example/a?b=c&d", "feed.example/rss", ""}) {
    frame_.addedAddresses.clear();
    post.feedUrl = feed;
    Show(post);
    Click("a[href^=ID_BTN_RSSADD]");
    const Texts asked = {(post.feedUrl.starts_with("https:") ? "" : "http://") + post.feedUrl};
    EXPECT_TRUE(ComesTrue([&] { return frame_.addedAddresses == asked; })) << feed;
  }
}

TEST_F(PageCommandsTest, TheLinkUnderThePointerGoesBeforeThePageAndThePageStandsForItsPost) {
  Show(Post("post", "/post", "<a id=l href='//link.example/'>link</a>"));
  Menu("p", kCommandCopyAddress);
  EXPECT_EQ(Clipboard(), Url("/post"));
  Menu("#l", kCommandCopyAddress);
  EXPECT_EQ(Clipboard(), "http://link.example/");
  Menu("p", kCommandOpenOutside);
  Visit("/web", "<p>one two</p>");
  Menu("p", kCommandOpenOutside);
  EXPECT_EQ(outside_, (Texts{server_.Url("/post"), server_.Url("/web")}));
  Evaluate("getSelection().selectAllChildren(document.querySelector('p'))");
  Menu("p", kCommandCopyText);
  EXPECT_EQ(Clipboard(), "one two");
}

TEST_F(PageCommandsTest, FindsInThePage) {
  Visit("/web", "<p>needle hay needle</p>");
  QSignalSpy found(&view_, &CRSS_HtmlView::FoundInPage);
  Press(QKeySequence::Find);
  QWidget& word = *QApplication::focusWidget();
  const auto buttons = pane_.findChildren<QToolButton*>();
  EXPECT_EQ(word.pos(), QPoint(8, 3));
  EXPECT_EQ(buttons[0]->x() - word.geometry().right(), 5);
  const std::pair<std::function<void()>, int> steps[] = {
      {[&] { QTest::keyClicks(&word, "needle"); }, 1},
      {[&] { QTest::keyClick(&word, Qt::Key_Return); }, 2},
      {[&] { buttons[0]->click(); }, 1},
      {[&] { buttons[1]->click(); }, 2},
      {[&] { QTest::keyClick(&word, Qt::Key_Enter, Qt::ShiftModifier); }, 1}};
  for (const auto& [step, active] : steps) {
    step();
    const QVariantList expected{active, 2};
    EXPECT_TRUE(ComesTrue([&] { return !found.empty() && found.last() == expected; }));
    const QString result = SkinText(frame_.GetSkin(), kTextFindCount).arg(active).arg(2);
    EXPECT_EQ(word.accessibleDescription(), result);
    EXPECT_EQ(word.parentWidget()->findChild<QLabel*>()->text(), result);
  }
  for (const bool byKey : {true, false}) {
    byKey ? QTest::keyClick(&word, Qt::Key_Escape) : buttons[2]->click();
    EXPECT_TRUE(Surface().hasFocus() && !word.isVisible());
    Press(QKeySequence::Find);
    EXPECT_TRUE(word.hasFocus() && word.accessibleDescription().isEmpty());
  }
}

TEST_F(PageCommandsTest, PrintsThePageAsItStandsOrSaysThatItCannot) {
  QString file;
  frame_.services.choosePrinter = [&](QPrinter& printer) {
    printer.setOutputFileName(file);
    return true;
  };
  Visit("/web", "<p>text</p>");
  QSignalSpy printed(pane_.findChild<QWebEngineView*>(), &QWebEngineView::printFinished);
  for (const char* place : {"page.pdf", "missing/page.pdf"}) {
    EXPECT_FALSE(IsLastMessageWith(HostText(kTextPrintFailed)));
    file = FilePath(place);
    Press(QKeySequence::Print);
    ASSERT_TRUE(printed.wait(30'000));
  }
  EXPECT_TRUE(IsLastMessageWith(HostText(kTextPrintFailed)));
  EXPECT_EQ(folder_.Read("page.pdf").substr(0, 5), "%PDF-");
}

TEST_F(PageCommandsTest, AMailAddressGoesToTheSystemWhenTheUserClicks) {
  Visit("/web", "<a id=m href='mailto:a@h?attach=/etc/passwd'>m</a><script>m.click()</script>");
  LetEngineFinish();
  EXPECT_EQ(outside_, Texts());
  Click("#m");
  EXPECT_TRUE(ComesTrue([&] { return outside_ == Texts{"mailto:a@h"}; }));
  opens_ = false;
  Go("mailto:b@h");
  EXPECT_TRUE(IsLastMessageWith("mailto:b@h"));
}

TEST_F(PageCommandsTest, APodcastsIconSavesItsFileTheLinkOpensItAndThePlayerPlaysIt) {
  PostRow post = Post("Podcast", "/tone.wav", "<form name=activeElement></form>");
  post.isPodcast = 1;
  server_.Serve("/tone.wav", "RIFF and so on", "audio/wav");
  Show(post);
  Click("img[width=\"16\"]");
  ASSERT_TRUE(ComesTrue([&] { return folder_.Names() == Texts{"tone.wav"}; }));
  EXPECT_EQ(folder_.Read("tone.wav"), "RIFF and so on");
  WaitForPage([&] { Click("font a"); });
  EXPECT_EQ(Address().text(), Url("/tone.wav"));
  server_.Serve("/moved.wav", "RIFF and so on", "audio/wav");
  server_.Redirect("/tone.wav", server_.Url("/moved.wav"));
  pane_.SetMode(0);
  Show(post);
  const auto range = [this] { return server_.LastHeader("/moved.wav", "Range"); };
  EXPECT_TRUE(ComesTrue([&] { return range() == "bytes=0-"; })) << "it plays";
  EXPECT_EQ(Address().text(), "");
  const auto& bar = *pane_.findChild<MediaBar*>();
  EXPECT_TRUE(bar.isVisible());
  EXPECT_EQ(bar.findChild<QLabel*>()->text(), "재생 중: Podcast");
  frame_.skin.SetHostValue(kValueWorkDir, folder_.Path());
  bar.findChild<QAbstractButton*>()->click();
  EXPECT_EQ(outside_, Texts{"file://" + folder_.File("player.m3u")});
  EXPECT_EQ(folder_.Read("player.m3u"), post.link + "\n");
  pane_.SetMode(1);
  Show(post);
  EXPECT_FALSE(bar.isVisible());
}

}  // namespace feedloom
