// Web pages that want to keep, nag or question the user. Beside them stands a plain page of the
// engine, in which each trap must work: without that a test proves nothing.
#include <QAuthenticator>
#include <QNetworkProxy>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEngineProfile>

#include "ui/browser/BrowserFixture.h"

namespace feedloom {
namespace {

// A page that asks the user nothing.
struct PlainPage : QWebEnginePage {
  using QWebEnginePage::QWebEnginePage;
  bool javaScriptConfirm(const QUrl&, const QString&) override { return ++confirms < 0; }
  int confirms = 0;
};

class Traps : public BrowserFixture {
 protected:
  Traps() {
    frame_.services.askSavePath = [this](auto& name, auto& host) {
      return saves_ << name + " of " + host, FilePath(name);
    };
    frame_.services.askLogin = [this](const LoginQuestion& question) {
      logins_ << question.host + (question.isProxy ? " proxy " : " ") + question.realm;
      return login_;
    };
    server_.Serve("/zip", "PK", "application/zip");
    plainView_.setPage(&plain_);
    plainView_.resize(640, 400);
  }
  ~Traps() override { plainView_.setParent(nullptr); }

  void LoadPlain(const QString& url) {
    plainView_.show();
    plainView_.activateWindow();
    QSignalSpy loaded(&plain_, &QWebEnginePage::loadFinished);
    plain_.load(url);
    EXPECT_TRUE(loaded.wait(30'000));
  }
  // Pages count what they try in their title.
  bool Tries(QWebEnginePage& page, int times) const {
    return ComesTrue([&] { return page.title().toInt() >= times; });
  }
  QString Host() const { return Url("").mid(7); }
  std::string Refusal() const {
    std::string text = HostText(kTextDownloadRefused);
    return text.replace(text.find("%s"), 2, Host().toStdString());
  }

  QStringList saves_, logins_;
  std::optional<Login> login_;
  QWebEngineProfile profile_;
  PlainPage plain_{&profile_};
  QWebEngineView plainView_;
};

TEST_F(Traps, APageThatWantsToKeepTheUserIsLeftOnEachWay) {
  server_.Serve("/next", "next", "text/html");
  server_.Serve("/trap",
                "<body onbeforeunload=\"event.preventDefault(); return event.returnValue = 'x'\">"
                "<script>document.title = confirm('own'); onclick = () => document.title = "
                "'clicked'</script>trap",
                "text/html");
  const std::function<void()> ways[] = {[&] { pane_.ShowPost(Post("a post", "/post")); },
                                        [&] { pane_.ShowMainPage(); }, [&] { Go(Url("/next")); },
                                        [&] { Button(kTextBackTooltip).click(); },
                                        [&] { Button(kTextRefreshTooltip).click(); }};
  const char* const shown[] = {"About a post", "Feedloom", "next", "next", "trap"};
  const char* const addresses[] = {"", "", "/next", "/next", "/trap"};
  Visit("/next", "next");
  for (std::size_t i = 0; i < std::size(ways); ++i) {
    WaitForPage([&] { view_.Navigate(Url("/trap")); });
    EXPECT_EQ(Page().title(), "false");  // the page's own question is answered with no
    Click(QPoint(50, 50));               // without a click the engine does not ask
    EXPECT_TRUE(ComesTrue([&] { return Page().title() == "clicked"; }));
    WaitForPage(ways[i]);
    EXPECT_TRUE(Text().contains(shown[i])) << i;
    EXPECT_EQ(Address().text(), *addresses[i] ? Url(addresses[i]) : "") << i;
    WaitForPage([&] { Go(Url("/next")); });
  }
  LoadPlain(Url("/trap"));
  LetLive(plain_);  // before, a click may get lost
  QTest::mouseClick(plainView_.focusProxy(), Qt::LeftButton, {}, {50, 50});
  EXPECT_TRUE(ComesTrue([&] { return plain_.title() == "clicked"; }));
  plain_.load(Url("/next"));
  EXPECT_TRUE(ComesTrue([&] { return plain_.confirms == 2; }));
  EXPECT_EQ(plain_.url(), Url("/trap"));
}

// Each tries to save again and again.
const char* const kSavers[] = {
    "location = '/zip'", "document.forms[0].submit()",
    "a = document.createElement('a'); a.download = 'f'; a.href = URL.createObjectURL(new "
    "Blob(['x'])); a.click()",
    "document.body.append(Object.assign(document.createElement('iframe'), {src: '/zip'}))",
    "document.links[0].click()"};

TEST_F(Traps, APageAsksOnceAfterEachClickWhereToSaveAndOtherwiseNever) {
  for (const char* const saver : kSavers) {
    const std::string page =
        "<form action=/zip method=post></form><a href=/zip></a><script>let n = 0; setInterval(() "
        "=> "
        "{ document.title = ++n; " +
        std::string(saver) + " }, 50)</script>";
    frame_.messages.clear();
    saves_.clear();
    Visit("/saver", page);
    EXPECT_TRUE(ComesTrue([&] { return IsLastMessageWith(Refusal()); })) << saver;
    EXPECT_TRUE(Tries(Page(), Page().title().toInt() + 10));
    EXPECT_EQ(saves_.size(), 0) << saver;
    EXPECT_EQ(std::ranges::count(frame_.messages, Refusal()), 1) << saver;
    EXPECT_TRUE(IsLastMessageWith(Refusal())) << saver;
    for (int clicks = 1; clicks <= 2; ++clicks) {
      Click(QPoint(50, 50));
      EXPECT_TRUE(ComesTrue([&] { return saves_.size() == clicks; })) << saver;
      EXPECT_TRUE(Tries(Page(), Page().title().toInt() + 10));
      EXPECT_EQ(saves_.size(), clicks) << saver;
    }
    EXPECT_TRUE(saves_[0].endsWith(" of " + Host())) << saves_[0].toStdString();
    QSignalSpy plainSaves(&profile_, &QWebEngineProfile::downloadRequested);
    LoadPlain(Url("/saver"));
    EXPECT_TRUE(ComesTrue([&] { return plainSaves.count() > 2; })) << saver;
    LoadPlain("about:blank");
    WaitForPage([&] { pane_.ShowMainPage(); });
  }
}

TEST_F(Traps, AnAddressOfTheUsersIsSavedWhereverItLeads) {
  server_.Redirect("/moved", "/zip");
  for (const char* const path : {"/zip", "/moved"}) {
    Go(Url(path));
    ASSERT_TRUE(ComesTrue([&] { return !saves_.isEmpty(); }));
    EXPECT_EQ(saves_.takeFirst(), "zip of " + Host());
  }
  // A page that comes again as a file asks for nobody.
  Visit("/again",
        "<script>setInterval(() => { document.title = 1; location.reload() }, 30)</script>");
  server_.Serve("/again", "PK", "application/zip");
  EXPECT_TRUE(ComesTrue([&] { return IsLastMessageWith(Refusal()); }));
  EXPECT_EQ(saves_.size(), 0);
  WaitForPage([&] { pane_.ShowMainPage(); });
}

TEST_F(Traps, AServerAsksForAPasswordOnceAndOnlyForThePageThatTheUserOpens) {
  server_.Protect("/secret", "welcome", "dTpwdw==");
  const auto open = [&] { WaitForPage([&] { Go(Url("/secret")); }); };
  open();  // given up
  EXPECT_EQ(Text(), "no entry");
  EXPECT_EQ(server_.Requests("/secret"), 1);
  login_ = Login{"u", "wrong"};
  open();
  EXPECT_EQ(Text(), "no entry");
  EXPECT_EQ(server_.Requests("/secret"), 3);
  EXPECT_EQ(logins_, QStringList(2, Host() + " the realm"));
  // Pictures, frames, scripts and the player do not ask.
  Visit("/page",
        "<img src=/secret><iframe src=/secret></iframe><script>fetch('/secret').then(() => "
        "document.title = 1)</script>");
  EXPECT_TRUE(Tries(Page(), 1));
  Visit("/leads", "<script>location = '/secret'</script>");
  EXPECT_TRUE(ComesTrue([&] { return Page().url() == Url("/secret"); }));
  pane_.SetMode(0);
  PostRow podcast = Post("a podcast", "/secret");
  podcast.isPodcast = 1;
  const int before = server_.Requests("/secret");
  Show(podcast);
  EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/secret") > before; }));
  LetEngineFinish();
  EXPECT_EQ(logins_.size(), 2);
  login_ = Login{"u", "pw"};
  open();
  EXPECT_EQ(Text(), "welcome");
  LoadPlain(Url("/secret"));
  EXPECT_GT(server_.Requests("/secret"), 25);
}

TEST_F(Traps, AProxyAsksForAPasswordOnce) {
  QNetworkProxy::setApplicationProxy(
      {QNetworkProxy::HttpProxy, "127.0.0.1", static_cast<quint16>(server_.Port())});
  server_.Protect("http://feed.example/page", "through the proxy", "dTpwdw==", 407);
  WaitForPage([&] { Go("http://first.example/"); });  // the engine learns of the proxy meanwhile
  WaitForPage([&] { Go("http://feed.example/page"); });
  EXPECT_EQ(Text(), "no entry");
  login_ = Login{"u", "pw"};
  WaitForPage([&] { Go("http://feed.example/page"); });
  EXPECT_EQ(Text(), "through the proxy");
  EXPECT_EQ(logins_.join(";"), "127.0.0.1 proxy the realm;127.0.0.1 proxy the realm");
  QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
}

TEST_F(Traps, TheKeyboardStaysWithThePageThatTakesANewWindowsPlace) {
  server_.Serve("/next", "<body onkeydown='document.title = event.key'>next", "text/html");
  const QByteArray post = "<a id=l target=_blank href='" + Url("/next").toUtf8() + "'>next</a>";
  // The pane is one of two. The window gets what the user does, and decides who is meant.
  QWidget whole;
  auto* const other = new QLineEdit(&whole);
  auto* const panes = new QVBoxLayout(&whole);
  panes->addWidget(other);
  panes->addWidget(&pane_);
  whole.resize(640, 480);
  whole.show();
  whole.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&whole));
  QWindow& window = *whole.windowHandle();
  const auto click = [&](Qt::MouseButton button) {
    QTest::mouseClick(&window, button, {}, Surface().mapTo(&whole, PlaceOf("#l")));
  };
  const std::function<void()> ways[] = {
      [&] {
        QTest::keyClick(&window, Qt::Key_Tab);
        EXPECT_TRUE(ComesTrue([&] { return Evaluate("document.activeElement.id") == "l"; }));
        QTest::keyClick(&window, Qt::Key_Return);
      },
      [&] { click(Qt::LeftButton); }, [&] { click(Qt::MiddleButton); }};
  for (const auto& way : ways) {
    Write(post);
    &way == ways ? pane_.setFocus() : other->setFocus();
    WaitForPage(way);
    EXPECT_EQ(Address().text(), Url("/next")) << &way - ways;
    QTest::keyClick(&window, Qt::Key_B);
    EXPECT_TRUE(ComesTrue([&] { return Page().title() == "b"; })) << &way - ways;
  }
  pane_.setParent(nullptr);
}

}  // namespace
}  // namespace feedloom
