// The pane's own menu and keys, links that lead out of the browser, and files.
#include <QClipboard>
#include <QPrinter>

#include "ui/Commands.h"
#include "ui/browser/BrowserPaneFixture.h"
#include "ui/browser/FindBar.h"

namespace feedloom {
namespace {

class PageCommandsTest : public BrowserPaneFixture {
 protected:
  PageCommandsTest() {
    frame_.actions.openOutside = [this](const QUrl& url) {
      outside_.push_back(url.toString());
      return opens_;
    };
    frame_.actions.askDownloadPlace = [this](const QString& name) {
      return QString::fromStdString(folder_.File(name.toStdString()));
    };
  }

  // Opens the menu on an element of the page.
  QMenu& OpenMenu(const QString& selector) {
    Click(selector, Qt::RightButton);
    QContextMenuEvent event(QContextMenuEvent::Mouse, PlaceOf(selector), QCursor::pos());
    QApplication::sendEvent(&Surface(), &event);
    EXPECT_TRUE(ComesTrue([&] { return pane_.findChild<QMenu*>() != nullptr; }));
    return *pane_.findChild<QMenu*>();
  }
  static QAction& Item(const QMenu& menu, int command) {
    for (QAction* const action : menu.actions()) {
      if (action->data().toInt() == command) return *action;
    }
    throw std::runtime_error(std::to_string(command));
  }
  void Choose(const QString& selector, int command) {
    QMenu& menu = OpenMenu(selector);
    EXPECT_TRUE(Item(menu, command).isEnabled()) << command;
    Item(menu, command).trigger();
    delete &menu;
    QApplication::processEvents();  // the command comes when the menu has closed
  }
  bool Offers(const QString& selector, int command) {
    QMenu& menu = OpenMenu(selector);
    const bool isEnabled = Item(menu, command).isEnabled();
    delete &menu;
    return isEnabled;
  }
  void Press(QKeySequence keys) {
    pane_.activateWindow();
    pane_.setFocus();
    QTest::keySequence(&Surface(), keys);
  }
  static QString Clipboard() { return QGuiApplication::clipboard()->text(); }
  double Width() { return Evaluate("innerWidth").toDouble(); }

  std::vector<QString> outside_;
  bool opens_ = true;
};

TEST_F(PageCommandsTest, TheLinkUnderThePointerGoesBeforeThePage) {
  PostRow post = Post("post", "/post");
  post.description = "<p>text</p><a href='http://link.example/'>link</a>";
  Show(post);
  Choose("p", kCommandCopyAddress);
  EXPECT_EQ(Clipboard(), Url("/post"));  // a post's page stands for its post
  Choose("[href=\"http://link.example/\"]", kCommandCopyAddress);
  EXPECT_EQ(Clipboard(), "http://link.example/");
  Choose("p", kCommandOpenOutside);
  EXPECT_EQ(outside_, std::vector<QString>{Url("/post")});
  Visit("/web", "<p>a page</p>");
  Choose("p", kCommandOpenOutside);
  EXPECT_EQ(outside_.back(), Url("/web"));
}

TEST_F(PageCommandsTest, OnlyWebAddressesAreOpenedOutside) {
  PostRow post = Post("post", "/post");
  post.link = "file:///etc/passwd";
  post.description = "<p>text</p>";
  Show(post);
  EXPECT_FALSE(Offers("p", kCommandOpenOutside));
  ShowMainPage();
  EXPECT_FALSE(Offers("h1", kCommandOpenOutside));
  EXPECT_FALSE(Offers("h1", kCommandCopyAddress));
}

TEST_F(PageCommandsTest, CopiesTheSelectedText) {
  Visit("/web", "<p>one two</p>");
  EXPECT_FALSE(Offers("p", kCommandCopyText));
  Evaluate("getSelection().selectAllChildren(document.querySelector('p'))");
  Choose("p", kCommandCopyText);
  EXPECT_EQ(Clipboard(), "one two");
}

TEST_F(PageCommandsTest, TheSizeHoldsForAllPages) {
  Visit("/web", "<p>text</p>");
  const double width = Width();
  Choose("p", kCommandZoomIn);
  EXPECT_TRUE(ComesTrue([&] { return Width() < width; }));
  Show(Post("post", "/post"));
  EXPECT_TRUE(ComesTrue([&] { return Width() < width; }));
  Press(Qt::CTRL | Qt::Key_0);
  EXPECT_TRUE(ComesTrue([&] { return Width() == width; }));
  Press(Qt::CTRL | Qt::Key_Minus);
  EXPECT_TRUE(ComesTrue([&] { return Width() > width; }));
}

TEST_F(PageCommandsTest, FindsInThePage) {
  Visit("/web", "<p>needle hay needle</p>");
  QSignalSpy found(pane_.findChild<CRSS_HtmlView*>(), &CRSS_HtmlView::FoundInPage);
  Press(QKeySequence::Find);
  FindBar& bar = *pane_.findChild<FindBar*>();
  ASSERT_TRUE(bar.isVisible());
  QTest::keyClicks(QApplication::focusWidget(), "needle");
  ASSERT_TRUE(ComesTrue([&] { return !found.empty() && found.last()[1] == 2; }));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(ComesTrue([&] { return found.last() == QVariantList{2, 2}; }));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(bar.isVisible());
}

TEST_F(PageCommandsTest, PrintsThePageAsItStands) {
  const QString file = QString::fromStdString(folder_.File("page.pdf"));
  frame_.actions.choosePrinter = [&](QPrinter& printer) {
    printer.setOutputFileName(file);
    return true;
  };
  Visit("/web", "<p>text</p>");
  QSignalSpy printed(pane_.findChild<QWebEngineView*>(), &QWebEngineView::printFinished);
  Press(QKeySequence::Print);
  ASSERT_TRUE(printed.wait(30'000));
  EXPECT_EQ(printed[0][0], true);
  EXPECT_EQ(folder_.Read("page.pdf").substr(0, 5), "%PDF-");
}

TEST_F(PageCommandsTest, AMailAddressGoesToTheSystem) {
  PostRow post = Post("post", "/post");
  post.description = "<a href='mailto:a@example.com'>mail</a>";
  Show(post);
  Click("[href^=mailto]");
  EXPECT_TRUE(ComesTrue([&] { return !outside_.empty(); }));
  EXPECT_EQ(outside_, std::vector<QString>{"mailto:a@example.com"});
  opens_ = false;
  Click("[href^=mailto]");
  EXPECT_TRUE(ComesTrue([&] { return outside_.size() == 2 && !frame_.messages.empty(); }));
  EXPECT_NE(frame_.messages.back().find("mailto:a@example.com"), std::string::npos);
}

TEST_F(PageCommandsTest, AWebPageStartsNoProgramByItself) {
  Visit("/web", "<a id=m href='mailto:a@example.com'>m</a><script>m.click()</script>text");
  Evaluate("document.getElementById('m').click()");
  Evaluate("1");
  EXPECT_EQ(outside_, std::vector<QString>());
  Click("#m");
  EXPECT_TRUE(ComesTrue([&] { return !outside_.empty(); }));
}

TEST_F(PageCommandsTest, ALinkThatIsNeitherIsRefusedWithAStatusText) {
  PostRow post = Post("post", "/post");
  const char* const links[] = {"file:///etc/passwd", "javascript:alert(1)", "data:text/html,x",
                               "tel:123", "chrome://crash/"};
  for (const char* link : links) {
    post.description = std::string("<a id=l href='") + link + "'>link</a>";
    Show(post);
    frame_.messages.clear();
    Click("#l");
    ASSERT_TRUE(ComesTrue([&] { return !frame_.messages.empty(); })) << link;
    EXPECT_NE(frame_.messages.back().find(link), std::string::npos) << frame_.messages.back();
    EXPECT_TRUE(Text().contains("link"));
  }
  EXPECT_EQ(outside_, std::vector<QString>());
}

// A podcast.

TEST_F(PageCommandsTest, ThePodcastsIconSavesItsFileAndTheLinkPlaysIt) {
  PostRow post = Post("Podcast", "/tone.wav");
  post.isPodcast = 1;
  server_.Serve("/tone.wav", "RIFF and so on", "audio/wav");
  Show(post);
  Click("img[width=\"16\"]");
  ASSERT_TRUE(ComesTrue([&] { return folder_.Names() == std::vector<std::string>{"tone.wav"}; }));
  EXPECT_EQ(folder_.Read("tone.wav"), "RIFF and so on");
  EXPECT_NE(frame_.messages.back().find("tone.wav"), std::string::npos);
  EXPECT_TRUE(Text().contains("About Podcast"));
  ClickForPage("font a");
  EXPECT_EQ(Address().text(), Url("/tone.wav"));
}

TEST_F(PageCommandsTest, StopEndsADownloadWhenNoPageIsLoading) {
  server_.Endless("/endless.zip");
  Visit("/web", "<a id=l href='/endless.zip' download>zip</a>");
  Click("#l");
  ASSERT_TRUE(ComesTrue([&] { return Button(kTextStopTooltip).isEnabled(); }));
  Button(kTextStopTooltip).click();
  EXPECT_TRUE(ComesTrue([&] { return !Button(kTextStopTooltip).isEnabled(); }));
  EXPECT_NE(frame_.messages.back().find("endless"), std::string::npos);
}

TEST_F(PageCommandsTest, ThePlayerPlaysItsMediaFile) {
  PostRow post = Post("Podcast", "/tone.wav");
  post.isPodcast = 1;
  server_.Serve("/moved.wav", "RIFF and so on", "audio/wav");
  server_.Redirect("/tone.wav", server_.Url("/moved.wav"));
  pane_.SetMode(0);
  Show(post);
  EXPECT_TRUE(WasRequested("/moved.wav"));
  EXPECT_EQ(Address().text(), "");
}

}  // namespace
}  // namespace feedloom
