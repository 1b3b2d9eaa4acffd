// The browser as an attacker meets it, who writes a post or a web page; and beside it a plain page
// of the engine, in which each attack must work: without that a test proves nothing.
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
static Attacks List(QByteArray text) { return text.trimmed().replace("  ", "\n").split('\n'); }
const QByteArray kImage = "R0lGODlhAQABAAAAACwAAAAAAQABAAA=";  // one pixel
static QByteArray Bytes(const std::string& text) { return QByteArray::fromStdString(text); }

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

  // The page of a post that is harmless but for one of its five texts.
  static QByteArray Built(PageKind kind, std::size_t field, const QByteArray& hostile) {
    std::string f[] = {"A title", "http://h/post", "Words", "2024-05-06 07:08:09", "http://h/feed"};
    f[field] = hostile.toStdString();
    const auto build = kind == PageKind::Podcast ? BuildPodcastPreviewPage : BuildPostPreviewPage;
    return Bytes(build(1, {f[0]}, {f[1]}, {f[2]}, {f[3]}, {f[4]}, true, {}, "utf-8"));
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

  // Returns when the page has drawn frames for so long, by its own clock.
  void LetLive(QWebEnginePage& page, int milliseconds = 60) {
    const QString lookAgain = "requestAnimationFrame(now => drawn = now); globalThis.drawn ?? 0";
    const double end = Ask(page, "performance.now()").toDouble() + milliseconds;
    EXPECT_TRUE(ComesTrue([&] { return Ask(page, lookAgain).toDouble() > end; }));
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

// Each needs nobody's help. The first one's policy allows all the others.
const Attacks kAttacks = List(R"--(
<meta http-equiv=Content-Security-Policy content="default-src * 'unsafe-inline' data:"><script>RUN</script>
<base href="HIT"><img src="?x">  <script>RUN</script>  <script src="HIT"></script>  <body onload="RUN">
<script type=module>RUN</script>  <img src=x: onerror="RUN">  <img src="IMAGE" onload="RUN">
<details open ontoggle="RUN">x</details>  <input autofocus onfocus="RUN">  <svg onload="RUN"></svg>
<style>@keyframes k { to { opacity: 0.5 } }</style><b style="animation: k 1ms" onanimationstart="RUN">x</b>
<video><source src=x: onerror="RUN"></video>  <svg><script>RUN</script></svg>  <link rel=prefetch href="HIT">
<svg><script href="HIT"></script></svg>  <svg><animate attributeName=x dur=1s onbegin="RUN"></animate></svg>
<svg><foreignObject><img src=x: onerror="RUN"></foreignObject></svg>  <link rel=modulepreload href="HIT">
<iframe src="javascript:void(RUN)"></iframe>  <iframe src="data:text/html,<script>RUN</script>"></iframe>
<iframe srcdoc="<script>RUN</script>"></iframe>  <link rel=stylesheet href="HIT">  <style>@import 'HIT';</style>
<style>@font-face { font-family: f; src: url('HIT') }</style><b style='font-family:f'>x</b>
<link rel=preload as=script href="HIT">)--");
// The player's page may have these from the web.
const Attacks kFrames = List(R"--(
<iframe src="HIT"></iframe>  <svg><foreignObject><iframe src="HIT"></iframe></foreignObject></svg>
<object data="HIT"></object>  <embed src="HIT">  <video src="HIT" autoplay></video>  <audio src="HIT" autoplay>)--");

TEST_F(Safety, NothingRunsFromAnyFieldOfAPost) {
  const QByteArray all = "\">" + Html(kAttacks + kFrames);
  for (std::size_t field = 0; field < 5; ++field) {
    ShowAndSettle(Built(PageKind::Post, field, all));
    ShowAndSettle(Built(PageKind::Podcast, field, all), PageKind::Podcast);
  }
  ShowAndSettle(Player("x\">" + Html(kAttacks)), PageKind::Player);
  ExpectNoHits(kAttacks + kFrames);
  ExpectHits(kAttacks + kFrames, Plain(Post(all)));
}

// These are shown unless the user wants no images from the web.
const Attacks kImages = List(R"--(
<img src="HIT">  <iframe srcdoc="<img src='HIT'>"></iframe>  <img srcset="HIT 1x">
<table background="HIT"><tr><td>x</table>  <video poster="HIT"></video>  <input type=image src="HIT">
<b style="background:url('HIT')">x</b>  <svg><image width=9 height=9 href="HIT"></image></svg>)--");

TEST_F(Safety, WithoutImagesTheAuthorLearnsNothing) {
  const QByteArray html = Post(Html(kImages));
  Write(html, PageKind::Post, false);
  Settle();
  ExpectNoHits(kImages);
  ShowAndSettle(html);
  EXPECT_EQ(Hits(kImages[0]), 1);
  ExpectHits(kImages, Plain(html));
}

TEST_F(Safety, NothingNavigatesByItself) {
  for (const QString& target :
       {Url("/web"), Url("/ID_BTN_RSSADD?0"), QString("ID_BTN_RSSSCRAP?0")}) {
    const QByteArray refresh =
        "\"><meta http-equiv=refresh content=\"0;url=" + target.toUtf8() + "\">";
    for (std::size_t field = 0; field < 5; ++field)
      ShowAndSettle(Built(PageKind::Podcast, field, refresh), PageKind::Podcast);
    ShowAndSettle(Player(refresh), PageKind::Player);
    QSignalSpy left(&plain_, &QWebEnginePage::urlChanged);
    LoadPlain(Plain(refresh));
    EXPECT_TRUE(ComesTrue([&] { return left.count() > 1; })) << target.toStdString();
  }
}

// Each needs the user's click on it.
const Attacks kTraps = List(R"--(
<b onclick="RUN" COVER>x</b>  <a href="javascript:void(RUN)" COVER>x</a>
<svg COVER><a xlink:href="javascript:void(RUN)"><rect width=300 height=200></rect></a></svg>
<img COVER usemap=#m src="IMAGE"><map name=m><area shape=default href="javascript:void(RUN)"></map>
<form action="HIT"><input type=submit COVER></form>  <form><button formaction="HIT" COVER>x</button></form>
<form action="javascript:void(RUN)"><input type=submit COVER></form>
<form method=post action="HIT"><input type=image COVER></form>
<label for=s COVER>x</label><form action="HIT"><input id=s type=submit></form>)--");

TEST_F(Safety, AClickRunsNothingAndSendsNothing) {
  for (const QByteArray& trap : kTraps) {
    ShowAndSettle(Post(Html({trap})), PageKind::Post, true);
    ExpectNoHits({trap});
    ExpectHits({trap}, Plain(Post(Html({trap}))), true);
  }
}

// FILE is the beginning of the files' names.
const Attacks kFileReads = List(R"--(
<link rel=stylesheet href="FILE.css"><b>x</b>  <style>@import 'FILE.css';</style><b>x</b>
<iframe src="FILE.html"></iframe>  <object data="FILE.html"></object>  <embed src="FILE.html">)--");
const QByteArray kFileScript = R"--(<title>no</title>
<script>x = new XMLHttpRequest(); x.onload = () => { document.title = 'read' }; x.open('GET', 'a.gif'); x.send()</script>)--";

TEST_F(Safety, NoFileIsReadButTheOneThatTheUserOpens) {
  const QByteArray path = Bytes(files_.File("a"));
  for (const QByteArray& attack : kFileReads) {
    files_.Write("a.css", Filled("b { background: url('HIT') }", attack).toStdString());
    files_.Write("a.html", Filled("<img src='HIT'>", attack).toStdString());
    QByteArray html;
    for (const char* const origin : {"", "feedloom://page", "file://"})
      html += QByteArray(attack).replace("FILE", origin + path);
    ShowAndSettle(Post(html));
    ShowAndSettle(Player("\">" + html), PageKind::Player);
    ExpectNoHits({attack});
    ExpectHits({attack}, File(html));
  }
  // A file that the user opens has no right to the files beside it.
  WaitForPage([&] { view_.Navigate(File(kFileScript)); });
  Settle();
  EXPECT_EQ(Page().title(), "no");
  LoadPlain(File(kFileScript));
  EXPECT_TRUE(ComesTrue([&] { return plain_.title() == "read"; }));
}

// SKIN holds a.gif and two links; FILE is an image in the folder NAME beside it.
const Attacks kInside = List("SKIN/a.gif  SKIN/./x/%2e%2e/a.gif");
const Attacks kOutside = List(R"--(
FILE  feedloom://pageFILE  feedloom://otherFILE  feedloom:FILE  file://FILE  SKIN/link.png
SKIN/../NAME/a.gif  SKIN/%2e%2e/NAME/a.gif  SKIN/..%2fNAME/a.gif  SKIN/%2e%2e%2fNAME%2fa.gif
SKIN%2f%2e%2e%2fNAME%2fa.gif  SKIN/..%5cNAME%5ca.gif  SKIN/..\NAME\a.gif  SKIN/%252e%252e/NAME/a.gif
SKIN/a.gif/../../NAME/a.gif  FILE%00SKIN/a.gif  //pageFILE  SKIN/dir/a.gif  SKIN-old/a.gif)--");

TEST_F(Safety, NoPathLeadsOutOfTheSkin) {
  std::filesystem::create_symlink(files_.File("a.gif"), skin_.File("link.png"));
  std::filesystem::create_directory_symlink(files_.Path(), skin_.File("dir"));
  std::filesystem::copy(files_.Path(), skin_.Path() + "-old");
  QByteArray html = "<img src='" + (kInside + kOutside).join("'><img src='") + "'>";
  html.replace("FILE", Bytes(files_.File("a.gif"))).replace("SKIN", Bytes(skin_.Path()));
  html.replace("NAME", Bytes(std::filesystem::path(files_.Path()).filename()));
  ShowAndSettle(Post(html));
  const QString widths = "[...document.querySelectorAll('#disc-0 img')].map(i => i.naturalWidth)";
  QVariantList expected(kInside.size(), 1);
  expected.resize(kInside.size() + kOutside.size(), 0);
  EXPECT_EQ(Evaluate(widths), expected);
  EXPECT_EQ(SkinFile(SkinFileUrl("/etc/passwd"), ""), "");  // without a skin
  std::filesystem::remove_all(skin_.Path() + "-old");
}

// The engine itself forgets handlers of moments that came while scripts were off.
const Attacks kPatient = List(R"--(
<style>@keyframes k { to { opacity: 0.5 } }</style><b style="animation: k 10ms infinite" onanimationiteration="RUN">x</b>
<svg><animate attributeName=x dur=20ms repeatCount=indefinite onrepeat="RUN"></animate></svg>
<a href="javascript:void(RUN)" COVER>x</a>)--");

const QByteArray kNames =
    "<img name=querySelectorAll><img name=querySelector><img name=activeElement><img "
    "name=getElementById>";

// A page could pass its own navigation for what the server of the pending one has ordered.
TEST_F(Safety, NothingRunsOrLeadsAwayWhileANavigationIsPending) {
  const Attacks refresh = {"<meta http-equiv=\"re&#102;resh\" content=\"1;url=HIT\">"};
  const Attacks framed = {"<script>RUN</script><meta http-equiv=refresh content=\"1;url=/later\">",
                          "<script>RUN</script>later"};
  server_.Hang("/hang");
  server_.Serve("/frame", Html({framed[0]}).toStdString(), "text/html");
  server_.Serve("/later", Html({framed[1]}).toStdString(), "text/html");
  const std::tuple<QByteArray, PageKind, Attacks> rows[] = {
      {Post(Html(kPatient)), PageKind::Post, kPatient},
      {Post(kNames + Html(refresh)), PageKind::Post, refresh},
      {Player(Url("/frame").toUtf8() + "\">" + kNames), PageKind::Player, framed}};
  for (const auto& [page, kind, attacks] : rows) {
    ShowAndSettle(page, kind);
    view_.Navigate(Url("/hang"));
    EXPECT_TRUE(ComesTrue([&] { return view_.IsLoading(); }));
    Click();
    Settle(1500);
    EXPECT_TRUE(view_.IsWritten());
    view_.Stop();
    Click();
    Settle();
    ExpectNoHits(attacks);
    ExpectHits(attacks, Plain(page), true);
  }
}

TEST_F(Safety, APostDownloadsNothingByItself) {
  server_.Serve("/file", "PK", "application/zip");
  ShowAndSettle(Player(Url("/file").toUtf8()), PageKind::Player);
  EXPECT_GT(server_.Requests("/file"), 0);
  Settle(300);
  EXPECT_EQ(folder_.Names().size(), 0u);
  Write(Html({"<a COVER href='" + Url("/file").toUtf8() + "'>x</a>"}));
  Click();
  EXPECT_TRUE(ComesTrue([&] { return folder_.Names() == std::vector<std::string>{"file"}; }));
}

// Elements may have the names of what the scripts of the buttons could use. A title holds markup as
// a text: a button may read anything, and showing it again is safe.
TEST_F(Safety, NamesBreakNoButtonAndForgedTextsAreHarmlessWhenTheyAreShown) {
  const auto press = [this](const QByteArray& html) {
    Write(Post(html + Html({"<a COVER href='ID_BTN_RSSSCRAP?0'>x</a>"})));
    Click();
    EXPECT_TRUE(ComesTrue([&] { return !actions_.empty(); }));
    return actions_.empty() ? QStringList() : actions_.takeFirst()[1].toStringList();
  };
  EXPECT_EQ(press(kNames).join("|").remove('\n'), "A title|http://h/post|x|2024-05-06 07:08:09");
  const Attacks hidden = {"<script>if (document.querySelectorAll.src === '') { RUN }</script>"};
  ExpectHits(hidden, Plain(kNames + Html(hidden)));
  const Attacks forged = List(R"--(<div id=TITLE-0 title="&lt;script&gt;RUN&lt;/script&gt;"></div>
<div id=Scraplink-0 title="&quot;&gt;&lt;img src=x: onerror=&quot;RUN&quot;&gt;"></div>)--");
  const QByteArray read = press(Html(forged)).join("").toUtf8();
  ShowAndSettle(Post(read));
  ExpectNoHits(forged);
  ExpectHits(forged, Plain(Post(read)));
}

TEST_F(Safety, AGeneratedPageSeesNoOther) {
  for (const QByteArray& attack : kFrames.first(4)) {
    const QByteArray other = Filled("<img src='HIT'>", attack);
    const auto frame = [&](const QUrl& page) {
      return QByteArray(attack).replace("HIT", page.toEncoded());
    };
    ShowAndSettle(Post(other));
    const QUrl shown = Page().url();
    ShowAndSettle(Post(frame(shown)));
    ShowAndSettle(Player("x\">" + frame(shown)), PageKind::Player);
    EXPECT_EQ(Hits(attack), 1) << attack.data();
    LoadPlain(Plain(frame(Plain(other))));
    EXPECT_TRUE(ComesTrue([&] { return Hits(attack) > 1; })) << attack.data();
  }
}

TEST_F(Safety, TheScriptsOfAWebPageGoWithIt) {
  const QByteArray tick = "<script>setInterval(() => { RUN + '?' + Math.random() }, 5)</script>";
  Visit("/web", Html({tick}).toStdString());
  EXPECT_TRUE(ComesTrue([&] { return Hits(tick) > 2; }));
  Write(Post("mine"));
  LoadPlain(Url("/settled"));  // what the last one has asked for has come
  const int seen = Hits(tick);
  Settle();
  EXPECT_EQ(Hits(tick), seen);
}

// SKIN is the skin's folder.
const Attacks kPeeks = List(R"--(
<img src="SKIN/a.gif" onload="RUN">  <link rel=stylesheet href="SKIN/a.css" onload="RUN">
<script src="SKIN/a.js" onload="RUN"></script>  <iframe src="SKIN/a.html"></iframe>
<script>x = new XMLHttpRequest(); x.onload = () => { RUN }; x.open('GET', 'SKIN/a.js'); x.send()</script>
<script>setTimeout(() => { location = 'SKIN/a.html' })</script>)--");

TEST_F(Safety, AWebPageSeesNothingOfTheSkinAndItsIconIsNotAskedFor) {
  Visit("/page", "<link rel=icon href=/icon>");
  skin_.Write("a.css", "b{}");
  skin_.Write("a.js", "1");
  for (const QByteArray& attack : kPeeks) {
    skin_.Write("a.html", Filled("<img src='HIT'>", attack).toStdString());
    const QByteArray html = Html({attack}).replace("SKIN", "feedloom://page" + Bytes(skin_.Path()));
    Visit("/web", html.toStdString());
    Settle();
    ExpectNoHits({attack});
    ExpectHits({attack}, Plain(html));
  }
  EXPECT_EQ(server_.Requests("/icon"), 0);  // it would tell who reads
  LoadPlain(Url("/page"));
  EXPECT_TRUE(WasRequested("/icon"));
}

}  // namespace feedloom
