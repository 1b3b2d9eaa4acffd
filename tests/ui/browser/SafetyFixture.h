#pragma once

#include <QWebEngineProfile>
#include <QWebEngineSettings>

#include "ui/browser/BrowserFixture.h"
#include "ui/browser/PageScheme.h"
#include "ui/page/Pages.h"

namespace feedloom {

// HTML texts. In them RUN is a script with single quotes that asks for HIT, an address of the
// attack's own at the test's server; COVER makes an element the one that Click() hits.
using Attacks = QByteArrayList;
// The attacks stand on lines of their own, or two blanks apart.
inline Attacks List(QByteArray text) { return text.trimmed().replace("  ", "\n").split('\n'); }
const QByteArray kImage = "R0lGODlhAQABAAAAACwAAAAAAQABAAA=";  // one pixel
inline QByteArray Bytes(const std::string& text) { return QByteArray::fromStdString(text); }

struct Safety : BrowserFixture {
  Safety() {
    frame_.skin.SetHostValue(kValueImageDir, skin_.Path());
    // The plain page runs scripts, and knows generated pages without a policy.
    profile_.installUrlSchemeHandler(kPageScheme, &scheme_);
    plain_.settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessRemoteUrls, true);
    plainView_.setPage(&plain_);
    plainView_.resize(400, 300);
    plainView_.show();
    for (const TempFolder* const folder : {&skin_, &files_})
      folder->Write("a.gif", QByteArray::fromBase64(kImage).toStdString());
  }
  ~Safety() override { plainView_.setParent(nullptr); }

  static constexpr std::size_t kFields = 7;
  // The page of a post that is harmless but for one of its kFields texts.
  static QByteArray Built(PageKind kind, std::size_t field, const QByteArray& hostile) {
    std::string f[kFields] = {"A title",       "http://h/post", "Words", "2024-05-06 07:08:09",
                              "http://h/feed", "An author",     "news"};
    f[field] = hostile.toStdString();
    const auto build = kind == PageKind::Podcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
    return Bytes(build(1, {f[0]}, {f[1]}, {f[2]}, {f[3]}, {f[4]}, true, {}, "utf-8",
                       {{.authors = {f[5]}, .categories = {f[6]}}}));
  }
  static QByteArray Post(const QByteArray& text) { return Built(PageKind::Post, 2, text); }
  static QByteArray Player(const QByteArray& link) {
    return Bytes(BuildPodcastPlayerPage({}, link.toStdString(), {}, {}, {}));
  }

  static std::string Hit(const QByteArray& of) { return "/hit/" + std::to_string(qChecksum(of)); }
  int Hits(const QByteArray& attack) const { return server_.Requests(Hit(attack)); }
  QByteArray Filled(QByteArray html, const QByteArray& attack) const {
    html.replace("COVER", "style='position:fixed;left:0;top:0;width:300px;height:200px'");
    html.replace("IMAGE", "data:image/gif;base64," + kImage);
    html.replace("RUN", "new Image().src='HIT'");
    return html.replace("HIT", Url(Hit(attack)).toUtf8());
  }
  QByteArray Html(const Attacks& attacks) const {
    QByteArray all;
    for (const auto& attack : attacks) all += "<div>" + Filled(attack, attack) + "</div>\n";
    return all;
  }
  void ExpectNoHits(const Attacks& attacks) const {
    for (const auto& attack : attacks) EXPECT_EQ(Hits(attack), 0) << attack.data();
  }
  void LoadPlain(const QUrl& url) {
    plainView_.activateWindow();
    plainView_.setFocus();
    QSignalSpy loaded(&plain_, &QWebEnginePage::loadFinished);
    plain_.load(url);
    EXPECT_TRUE(loaded.wait(30'000));
  }
  QUrl Plain(const QByteArray& html) {
    return GeneratedPageUrl(scheme_.Pages().Add({.html = html}));
  }
  QUrl File(const QByteArray& html) const {
    return "file://" + QString::fromStdString(files_.Write("p.html", html.toStdString()));
  }
  // The attacks work in the plain page.
  void ExpectHits(const Attacks& attacks, const QUrl& page, bool click = false) {
    LoadPlain(page);
    LetLive(plain_);
    if (click) QTest::mouseClick(plainView_.focusProxy(), Qt::LeftButton, {}, {50, 50});
    for (const auto& attack : attacks)
      EXPECT_TRUE(ComesTrue([&] { return Hits(attack) > 0; })) << attack.data();
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
    EXPECT_EQ(actions_.count() + outside_.count(), 0);
  }
  void Click() { BrowserFixture::Click(QPoint(50, 50)); }

  TempFolder skin_, files_;
  PageSchemeHandler scheme_{[this] { return QString::fromStdString(skin_.Path()); }, nullptr};
  QWebEngineProfile profile_;
  QWebEnginePage plain_{&profile_};
  QWebEngineView plainView_;
  QSignalSpy actions_{&view_, &CRSS_HtmlView::ActionClicked};
  QSignalSpy outside_{&view_, &CRSS_HtmlView::OutsideWanted};
};

}  // namespace feedloom
