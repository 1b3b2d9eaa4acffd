// The browser pane on screen with the real engine, over a real store, with a real server to visit.
#pragma once

#include <QWebEnginePage>
#include <QWebEngineView>
#include <QtTest>
#include <QtWidgets>

#include "kit/FeedServer.h"
#include "look/QtText.h"
#include "look/SkinText.h"
#include "ui/CommandKeys.h"
#include "ui/Fakes.h"
#include "ui/browser/BrowserServices.h"
#include "ui/browser/CRSS_HtmlView.h"
#include "ui/browser/CRSS_RightBottomContainer.h"
#include "ui/browser/CRSS_RightBottomToolBarWnd.h"

namespace feedloom {

// Waits until `isTrue`, in an event loop: the engine's processes need the processor meanwhile.
inline bool ComesTrue(const std::function<bool()>& isTrue) {
  QEventLoop loop;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, &loop, [&] { isTrue() ? loop.quit() : void(); });
  QTimer::singleShot(30'000, &loop, &QEventLoop::quit);
  look.start(5);
  if (!isTrue()) loop.exec();
  return isTrue();
}

// What `script` gives in a world of `page` that the page itself cannot enter.
inline QVariant Ask(QWebEnginePage& page, const QString& script) {
  const auto answer = std::make_shared<std::optional<QVariant>>();
  page.runJavaScript(script, 1, [answer](const QVariant& value) { *answer = value; });
  EXPECT_TRUE(ComesTrue([&] { return answer->has_value(); })) << script.toStdString();
  return answer->value_or(QVariant());
}

// Returns when the page has drawn frames for so long, by its own clock.
inline void LetLive(QWebEnginePage& page, int milliseconds = 60) {
  const QString lookAgain = "requestAnimationFrame(now => drawn = now); globalThis.drawn ?? 0";
  const double end = Ask(page, "performance.now()").toDouble() + milliseconds;
  EXPECT_TRUE(ComesTrue([&] { return Ask(page, lookAgain).toDouble() > end; }));
}

struct BrowserFrame : FakeDesk, FakeSubscribing, FakeReading {
  BrowserFrame() : FakeSubscribing(static_cast<FakeDesk&>(*this)), FakeReading(state) {}
  Registry registry{workFolder.File("registry.reg")};
  BrowserServices services{
      .showsRemoteImages = MakeBrowserServices(*this, registry, nullptr).showsRemoteImages,
      .chooseCabinet = [] { return std::nullopt; },
      .askSavePath = [](auto&, auto&) { return QString(); },
      .askLogin = [](auto&) { return std::nullopt; },
      .choosePrinter = [](auto&) { return false; },
      .openExternally = [](auto&) { return false; }};
};

struct BrowserFixture : testing::Test {
  static void SetUpTestSuite() { PrepareBrowser(); }

  BrowserFixture() {
    frame_.services.askSavePath = [this](auto& name, auto&) { return FilePath(name); };
    pane_.resize(640, 400);
    pane_.show();
    pane_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&pane_));
    for (const int command : {kCommandPrint, kCommandZoomIn, kCommandZoomOut, kCommandZoomNormal,
                              kCommandGoBack, kCommandGoForward, kCommandFocusAddress})
      OnKeysOf(command, pane_, [this, command] { pane_.RunCommand(command); });  // the frame's keys
  }

  QString FilePath(const QString& name) const {
    return QString::fromStdString(folder_.File(name.toStdString()));
  }
  QString Url(const std::string& path) const { return QString::fromStdString(server_.Url(path)); }
  // A post of the store; its link is a path of the server.
  PostRow Post(const std::string& title, const std::string& path,
               const std::string& html = {}) const {
    PostRow post;
    post.title = title;
    post.link = server_.Url(path);
    post.published = "2008-05-01 10:00:00";
    post.description = "<p>About " + title + "</p>" + html;
    return post;
  }

  // These return when the page that is begun is shown.
  void WaitForPage(const std::function<void()>& begin) {
    QSignalSpy shown(&pane_, &CRSS_RightBottomContainer::PageShown);
    begin();
    EXPECT_TRUE(shown.wait(30'000));
  }
  void Show(const PostRow& post) {
    WaitForPage([&] { pane_.ShowPost(post); });
  }
  void Write(const QByteArray& html, PageKind kind = PageKind::Post, bool showsImages = true) {
    WaitForPage([&] { view_.WritePageToBrowser({html, kind, {}, showsImages}); });
  }
  void Visit(const std::string& path, const std::string& html) {
    server_.Serve(path, html, "text/html");
    WaitForPage([&] { view_.Navigate(Url(path)); });
  }

  QWebEnginePage& Page() const { return *pane_.findChild<QWebEngineView*>()->page(); }
  QWidget& Surface() const { return *pane_.findChild<QWebEngineView*>()->focusProxy(); }
  QVariant Evaluate(const QString& script) const { return Ask(Page(), script); }
  QString Text() const { return Evaluate("document.body.innerText").toString(); }
  // Returns when the engine is through with what a click or a script has begun.
  void LetEngineFinish() const {
    for (int i = 0; i < 3; ++i) Evaluate("1");
  }

  // The middle of the first element that this CSS selector finds.
  QPoint PlaceOf(const QString& selector) const {
    static const QString kMiddle = R"--((r => [r.x + r.width / 2, r.y + r.height / 2])(
        document.querySelector('%1').getBoundingClientRect()))--";
    const QVariantList middle = Evaluate(kMiddle.arg(selector)).toList();
    return {middle.value(0).toInt(), middle.value(1).toInt()};
  }
  void Click(QPoint place) { QTest::mouseClick(&Surface(), Qt::LeftButton, {}, place); }
  void Click(const QString& selector) { Click(PlaceOf(selector)); }
  void Press(QKeySequence keys) {
    pane_.activateWindow();
    pane_.setFocus();
    QTest::keySequence(&Surface(), keys);
  }

  // By the key of its tooltip.
  QAbstractButton& Button(const char* key) const {
    const auto buttons = toolbar_.findChildren<QAbstractButton*>();
    return **std::ranges::find(buttons, SkinText(frame_.GetSkin(), key), &QWidget::accessibleName);
  }
  QLineEdit& Address() const { return *toolbar_.findChild<QLineEdit*>(); }
  void Go(const QString& typed) {
    Address().setText(typed);
    Button(kTextGoTooltip).click();
  }

  std::string HostText(const char* key) const {
    return frame_.skin.Get().GetText(kSectionTexts, key);
  }
  bool IsLastMessageWith(const std::string& text) const {
    return !frame_.messages.empty() && frame_.messages.back().find(text) != std::string::npos;
  }
  bool WasRequested(const std::string& path) const {
    return ComesTrue([&] { return server_.Requests(path) > 0; });
  }

  FeedServer server_;
  TempFolder folder_;  // of downloads
  BrowserFrame frame_;
  CRSS_RightBottomContainer pane_{frame_, frame_, frame_, frame_.services, nullptr};
  CRSS_HtmlView& view_ = *pane_.findChild<CRSS_HtmlView*>();
  CRSS_RightBottomToolBarWnd& toolbar_ = *pane_.findChild<CRSS_RightBottomToolBarWnd*>();
};

}  // namespace feedloom
