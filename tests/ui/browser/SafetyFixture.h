// The browser as an attacker meets it, who writes a post's texts or a web page; and beside it one
// without the defence, in which the same attacks must work: a test that sees nothing there proves
// nothing.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <array>

#include "ui/browser/BrowserFixture.h"
#include "ui/browser/PageScheme.h"
#include "ui/page/Pages.h"

namespace feedloom {

// HTML texts. In them RUN is a script with single quotes that asks for HIT, an address of the
// attack's own at the test's server, ORIGIN, that ends in NAME; COVER makes an element the one that
// Click() hits; IMAGE is an image's address.
using Attacks = QByteArrayList;
// Each stands on a line of its own, or two blanks from the next.
inline Attacks List(const char* text) {
  return QByteArray(text).trimmed().replace("  ", "\n").split('\n');
}
inline QByteArray Bytes(const std::string& text) { return QByteArray::fromStdString(text); }
inline QUrl FileUrl(const std::string& path) {
  return QUrl::fromLocalFile(QString::fromStdString(path));
}

class Safety : public BrowserFixture {
 protected:
  // Title, link, description, date and feed URL of a post.
  using Fields = std::array<std::string, 5>;
  static constexpr std::size_t kLink = 1, kDescription = 2;

  Safety() {
    frame_.skin.SetHostValue(kValueImageDir, skin_.Path());
    // A plain page of the engine: its scripts run, and it knows generated pages without a policy.
    profile_.installUrlSchemeHandler(kPageScheme, &scheme_);
    plain_.settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    plainView_.setPage(&plain_);
    plainView_.resize(400, 300);
    plainView_.show();
    QImage image(77, 5, QImage::Format_RGB32);
    image.fill(Qt::green);
    EXPECT_TRUE(image.save(QString::fromStdString(skin_.File("in.png"))));
    EXPECT_TRUE(image.save(QString::fromStdString(files_.File("a.png"))));
    files_.Write("a.css", "#probe { width: 77px }");
  }
  ~Safety() override { plainView_.setParent(nullptr); }

  // The texts of a harmless post but for one.
  static Fields With(std::size_t field, const QByteArray& hostile) {
    Fields fields = {"A title", "http://h/post", "Words", "2024-05-06 07:08:09", "http://h/feed"};
    fields[field] = hostile.toStdString();
    return fields;
  }
  static QByteArray Built(PageKind kind, const Fields& f) {
    if (kind == PageKind::Player) return Bytes(BuildPodcastPlayerPage({}, f[kLink], {}, {}, {}));
    const auto build = kind == PageKind::Podcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
    return Bytes(build(1, {f[0]}, {f[1]}, {f[2]}, {f[3]}, {f[4]}, true, {}, "utf-8"));
  }
  static QByteArray Post(const QByteArray& text) {
    return Built(PageKind::Post, With(kDescription, text));
  }
  QByteArray Player(const char* path) const {
    return Built(PageKind::Player, With(kLink, Url(path).toUtf8()));
  }

  static QByteArray Name(const QByteArray& attack) {
    return QByteArray::number(qChecksum(attack), 16);
  }
  int Hits(const QByteArray& attack) const {
    return server_.Requests("/hit/" + Name(attack).toStdString());
  }
  QByteArray Html(const Attacks& attacks) const {
    QByteArray all;
    for (QByteArray html : attacks) {
      const QByteArray name = Name(html);
      html.replace("COVER", "style='position:fixed;left:0;top:0;width:300px;height:200px'");
      html.replace("IMAGE", "data:image/gif;base64,R0lGODlhAQABAAAAACwAAAAAAQABAAA=");
      html.replace("RUN", "new Image().src='HIT'").replace("HIT", "ORIGIN/hit/NAME");
      all += "<div>" + html.replace("ORIGIN", Url("").toUtf8()).replace("NAME", name) + "</div>\n";
    }
    return all;
  }
  void ExpectNoHits(const Attacks& attacks) const {
    for (const auto& attack : attacks) EXPECT_EQ(Hits(attack), 0) << attack.data();
  }
  // Each works without the defence.
  void ExpectHits(const Attacks& attacks) const {
    for (const auto& attack : attacks)
      EXPECT_TRUE(ComesTrue([&] { return Hits(attack) > 0; })) << attack.data();
  }

  void LoadPlain(const QUrl& url) {
    plainView_.activateWindow();
    plainView_.setFocus();
    QSignalSpy loaded(&plain_, &QWebEnginePage::loadFinished);
    plain_.load(url);
    EXPECT_TRUE(loaded.wait(30'000));
  }
  void WritePlain(const QByteArray& html) {
    LoadPlain(GeneratedPageUrl(scheme_.Pages().Add({.html = html})));
  }
  void WritePlainFile(const QByteArray& html) {
    LoadPlain(FileUrl(files_.Write("page.html", html.toStdString())));
  }
  void ClickPlain() {
    LetLive(plain_);
    QTest::mouseClick(plainView_.focusProxy(), Qt::LeftButton, {}, {50, 50});
  }

  // Comes back when the page has had so many milliseconds, by its own clock, for what it does by
  // itself. Where scripts are off no timer runs, but frames are drawn.
  void LetLive(QWebEnginePage& page, int milliseconds = 60) {
    static constexpr char kTitleLater[] = R"--((end => {
      const title = Object.getOwnPropertyDescriptor(Document.prototype, 'title');
      const look = now => now < end ? requestAnimationFrame(look) : title.set.call(document, '%2');
      requestAnimationFrame(look);
    })(performance.now() + %1))--";
    const QString title = "settled " + QString::number(++settled_);
    page.runJavaScript(QString(kTitleLater).arg(milliseconds).arg(title), 1);
    EXPECT_TRUE(ComesTrue([&] { return page.title() == title; })) << "the page stands still";
  }
  // The server, too, has then seen what the page has asked for.
  void Settle(int milliseconds = 60) {
    LetLive(Page(), milliseconds);
    LoadPlain(Url("/settled"));
  }
  // Shows the page; when it has settled it is still there and has opened nothing.
  void ShowAndSettle(const QByteArray& html, PageKind kind = PageKind::Post, bool click = false) {
    Write(html, kind);
    const QUrl shown = Page().url();
    if (click) Click();
    Settle();
    EXPECT_EQ(Page().url(), shown);
    for (const QWidget* const window : QApplication::topLevelWidgets())
      EXPECT_FALSE(window->isVisible() && qobject_cast<const QDialog*>(window) != nullptr);
    EXPECT_EQ(actions_.count() + outside_.count(), 0);
  }
  void Click() { BrowserFixture::Click(QPoint(50, 50)); }
  // Begins a navigation that gets no answer.
  void BeginNavigation() {
    server_.Hang("/hang");
    view_.Navigate(Url("/hang"));
    EXPECT_TRUE(WasRequested("/hang"));
  }

  TempFolder skin_, files_;
  PageSchemeHandler scheme_{[this] { return QString::fromStdString(skin_.Path()); }, nullptr};
  QWebEngineProfile profile_;
  QWebEnginePage plain_{&profile_};
  QWebEngineView plainView_;
  QSignalSpy actions_{&view_, &CRSS_HtmlView::ActionClicked};
  QSignalSpy outside_{&view_, &CRSS_HtmlView::OutsideWanted};
  int settled_ = 0;
};

}  // namespace feedloom
