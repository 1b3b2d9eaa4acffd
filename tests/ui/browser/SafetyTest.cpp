// The browser as an attacker meets it, who writes a post or a web page; and beside it a plain page
// of the engine, in which each attack must work: without that a test proves nothing.
#include "ui/browser/SafetyFixture.h"

namespace feedloom {

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
  for (std::size_t field = 0; field < kFields; ++field) {
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
    for (std::size_t field = 0; field < kFields; ++field)
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
