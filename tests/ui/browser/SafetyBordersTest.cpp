// Hostile posts and web pages in the real engine: what is between the web, generated pages and the
// machine's files, and the moments when one takes the other's place.
#include <filesystem>

#include "ui/browser/SafetyFixture.h"

namespace feedloom {
namespace {

using SafetyBorders = Safety;

// FILE is the beginning of the files' names. What a page reads gives its element "probe" a width of
// 77 pixels, or asks for something.
const Attacks kReads = List(R"--(
<img id=probe src="FILE.png">  <b id=probe style="display:inline-block;content:url('FILE.png')"></b>
<link rel=stylesheet href="FILE.css"><div id=probe></div>  <style>@import 'FILE.css';</style><div id=probe></div>
)--");
const Attacks kFileFrames = List(R"--(
<iframe src="FILE.html"></iframe>  <object data="FILE.html"></object>  <embed src="FILE.html">
)--");

TEST_F(SafetyBorders, NoFileIsRead) {
  const QString width = "document.getElementById('probe').offsetWidth";
  const QByteArray path = Bytes(files_.File("a"));
  for (QByteArray attack : kReads) {
    for (const QByteArray& file : {path, "feedloom://page" + path, "file://" + path}) {
      ShowAndSettle(Post(QByteArray(attack).replace("FILE", file)));
      EXPECT_NE(Evaluate(width), 77) << attack.data();
    }
    WritePlainFile(attack.replace("FILE", "file://" + path));
    EXPECT_EQ(Ask(plain_, width), 77) << attack.data();
  }
  for (QByteArray attack : kFileFrames) {
    const Attacks hit = {"<img src=\"HIT\">" + attack.left(4)};
    files_.Write("a.html", Html(hit).toStdString());
    attack.replace("FILE", "file://" + path);
    ShowAndSettle(Post(attack));
    ShowAndSettle(Built(PageKind::Player, With(kLink, "\">" + attack)), PageKind::Player);
    ExpectNoHits(hit);
    WritePlainFile(attack);
    ExpectHits(hit);
  }
}

// A file that the user opens runs its scripts, but has no right to the files beside it.
TEST_F(SafetyBorders, AFileReadsNoOther) {
  const Attacks attack = {
      "<script>x = new XMLHttpRequest(); x.onload = () => { RUN };"
      "x.open('GET', 'a.css'); x.send()</script>"};
  WritePlainFile(Html(attack));
  ExpectHits(attack);
  const int seen = Hits(attack[0]);
  WaitForPage([&] { view_.Navigate(plain_.url()); });
  Settle();
  EXPECT_EQ(Hits(attack[0]), seen);
}

// Nobody sees the icons of pages; they would tell who reads.
TEST_F(SafetyBorders, NoPagesIconIsAskedFor) {
  Visit("/web", "<link rel=icon href=/icon>");
  Settle();
  EXPECT_EQ(server_.Requests("/icon"), 0);
  LoadPlain(Url("/web"));
  EXPECT_TRUE(WasRequested("/icon"));
}

// SKIN holds in.png and three links; FILE is an image in the folder NAME beside it.
const Attacks kInside = List("SKIN/in.png  SKIN/good.png  SKIN/./x/%2e%2e/in.png");
const Attacks kOutside = List(R"--(
FILE  feedloom://pageFILE  feedloom://otherFILE  feedloom:FILE  SKIN/link.png  SKIN/dir/a.png
SKIN/../NAME/a.png  SKIN/%2e%2e/NAME/a.png  SKIN/..%2fNAME/a.png  SKIN/%2e%2e%2fNAME%2fa.png
SKIN%2f%2e%2e%2fNAME%2fa.png  SKIN/..%5cNAME%5ca.png  SKIN/..\NAME\a.png  SKIN/%252e%252e/NAME/a.png
SKIN/in.png/../../NAME/a.png  FILE%00SKIN/in.png  //pageFILE
)--");

TEST_F(SafetyBorders, NoPathLeadsOutOfTheSkin) {
  std::filesystem::create_symlink(files_.File("a.png"), skin_.File("link.png"));
  std::filesystem::create_directory_symlink(files_.Path(), skin_.File("dir"));
  std::filesystem::create_symlink(skin_.File("in.png"), skin_.File("good.png"));
  QByteArray html = "<img src='" + (kInside + kOutside).join("'><img src='") + "'>";
  html.replace("FILE", Bytes(files_.File("a.png"))).replace("SKIN", Bytes(skin_.Path()));
  html.replace("NAME", Bytes(std::filesystem::path(files_.Path()).filename()));
  ShowAndSettle(Post(html));
  const auto widths =
      Evaluate("[...document.querySelectorAll('#disc-0 img')].map(i => i.naturalWidth)").toList();
  ASSERT_EQ(widths.size(), kInside.size() + kOutside.size());
  for (qsizetype i = 0; i < widths.size(); ++i)
    EXPECT_EQ(widths[i].toInt() > 0, i < kInside.size()) << (kInside + kOutside)[i].data();
}

// Handlers that wait for their moment, of which the engine itself forgets those that came while
// scripts were off; a link does not depend on that.
const Attacks kPatient = List(R"--(
<style>@keyframes k { to { opacity: 0.5 } }</style><b style="animation: k 10ms infinite" onanimationiteration="RUN">x</b>
<svg><animate attributeName=x dur=20ms repeatCount=indefinite onrepeat="RUN"></animate></svg>
)--");

TEST_F(SafetyBorders, NothingRunsWhileANavigationIsPending) {
  const Attacks trap = {"<a href=\"javascript:void(RUN)\" COVER>x</a>"};
  const QByteArray html = Post(Html(kPatient + trap));
  Write(html);
  BeginNavigation();
  Click();
  Settle();
  EXPECT_TRUE(view_.IsWritten());
  view_.Stop();
  Click();
  Settle();
  ExpectNoHits(kPatient + trap);

  // Without a policy the engine's switch for scripts, which the navigation turns, lets them run.
  plain_.settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
  WritePlain(html);
  plain_.settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, true);
  ClickPlain();
  ExpectHits(trap);
  WritePlain(html);
  ExpectHits(kPatient);
}

// While a navigation is pending a page could pass its own for what the server has ordered.
TEST_F(SafetyBorders, APageLeadsNowhereWhileANavigationIsPending) {
  const Attacks trap = {"<meta http-equiv=\"re&#102;resh\" content=\"1;url=HIT\">"};
  Write(Post(Html(trap)));
  BeginNavigation();
  Settle(1500);
  ExpectNoHits(trap);
  EXPECT_TRUE(view_.IsWritten());
  WritePlain(Post(Html(trap)));
  ExpectHits(trap);
}

TEST_F(SafetyBorders, AFrameInThePlayerRunsNothingEvenWhileANavigationIsPending) {
  const Attacks scripts = {"<script>RUN</script>", "<script>RUN</script>later"};
  const QByteArray now = Html(kPatient) + Html({scripts[0]});
  server_.Serve("/next", Html({scripts[1]}).toStdString(), "text/html");
  server_.Serve("/frame", "<meta http-equiv=refresh content=\"1;url=/next\">" + now.toStdString(),
                "text/html");
  ShowAndSettle(Player("/frame"), PageKind::Player);
  EXPECT_GT(server_.Requests("/frame"), 0);
  BeginNavigation();
  Settle(1500);
  ExpectNoHits(kPatient + scripts);
  WritePlain(Player("/frame"));
  ExpectHits(kPatient + scripts);
}

TEST_F(SafetyBorders, APostDownloadsNothingByItself) {
  server_.Serve("/file", "PK", "application/zip");
  ShowAndSettle(Player("/file"), PageKind::Player);
  EXPECT_GT(server_.Requests("/file"), 0);
  Settle(300);
  EXPECT_EQ(folder_.Names().size(), 0u);
  Write(Html({"<a COVER href='ORIGIN/file'>x</a>"}));
  Click();
  EXPECT_TRUE(ComesTrue([&] { return folder_.Names() == std::vector<std::string>{"file"}; }));
}

TEST_F(SafetyBorders, ThePlayersMediaFileIsPlayed) {
  const std::string head(
      "RIFF\x24\x08\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x40\x1F\0\0\x40\x1F\0\0\x01\0\x08\0data\0\x08"
      "\0\0",
      44);
  server_.Serve("/a.wav", head + std::string(2048, '\x80'), "audio/wav");
  server_.Redirect("/moved", server_.Url("/a.wav"));
  for (const char* const address : {"/a.wav", "/moved"}) {
    const int before = server_.Requests("/a.wav");
    ShowAndSettle(Player(address), PageKind::Player);
    // The engine asks once for the frame and once more for what plays in it.
    EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/a.wav") >= before + 2; })) << address;
    EXPECT_EQ(server_.LastHeader("/a.wav", "Range"), "bytes=0-");
  }
}

// A post's elements may be named like what the scripts of the buttons use. The last element of a
// name counts, in any case, and a title holds markup as a text: the buttons may read anything, and
// showing it again is as safe as before.
TEST_F(SafetyBorders, APostDoesNotBreakItsButtonsAndForgedTextsAreHarmlessWhenTheyAreShown) {
  const QByteArray clobbers =
      R"--(<img name=querySelectorAll><form id=forms name=querySelector><input
      name=id></form><img id=location><img id=navigator><form name=activeElement></form><img name=title>
      <img id=addEventListener><img id=requestAnimationFrame><img id=console>)--";
  const QByteArray forged =
      R"--(<div id=TITLE-0 title="&lt;script&gt;RUN&lt;/script&gt;"></div><span
      id=title-0>x</span><div id=Scraplink-0 title='"&gt;&lt;img src=x: onerror="RUN"&gt;'></div>)--";
  const QByteArray button = Html({"<a COVER href='ID_BTN_RSSSCRAP?0'>x</a>"});
  const QByteArray broken =
      "<script>if (document.querySelectorAll.call === undefined) { RUN }</script>";
  WritePlain(Post(clobbers + Html({broken})));
  ExpectHits({broken});
  const auto texts = [&](const QByteArray& html) {
    actions_.clear();
    Write(Post(html + button));
    EXPECT_EQ(actions_.count(), 0);
    Click();
    EXPECT_TRUE(ComesTrue([&] { return !actions_.empty(); }));
    EXPECT_EQ(actions_[0][0].value<PageAction>(), (PageAction{PageAction::SavePost, 0}));
    return actions_[0][1].toStringList();
  };
  const QStringList own = texts("words" + clobbers);
  EXPECT_EQ(own.value(0) + own.value(1) + own.value(3), "A titlehttp://h/post2024-05-06 07:08:09");
  EXPECT_TRUE(own.value(2).startsWith("words")) << own.value(2).toStdString();
  Fields read = With(4, "");
  const QStringList others = texts(Html({forged}));
  for (std::size_t i = 0; i < 4; ++i) read[i] = others.value(static_cast<int>(i)).toStdString();
  EXPECT_TRUE(read[0].starts_with("<script>")) << read[0];
  actions_.clear();
  ShowAndSettle(Built(PageKind::Post, read));
  ExpectNoHits({forged});
  WritePlain(Built(PageKind::Post, read));
  ExpectHits({forged});
}

// ADDRESS is the beginning of the files' names.
const Attacks kPeeks = List(R"--(
<img src="ADDRESS/in.png" onload="RUN">  <link rel=stylesheet href="ADDRESS/a.css" onload="RUN">
<script src="ADDRESS/a.js" onload="RUN"></script>  <iframe src="ADDRESS/a.html"></iframe>
<script>fetch('ADDRESS/a.js').then(() => { RUN })</script>
<script>setTimeout(() => { location = 'ADDRESS/a.html' })</script>
)--");

TEST_F(SafetyBorders, AWebPageSeesNothingOfTheSkin) {
  for (const QByteArray& attack : kPeeks) {
    skin_.Write("a.css", "b{}");
    skin_.Write("a.js", "1");
    skin_.Write("a.html", "<img src=" + server_.Url("/hit/" + Name(attack).toStdString()) + ">");
    for (const auto& [file, type] : {std::pair("a.css", "text/css"),
                                     {"a.js", "text/javascript"},
                                     {"a.html", "text/html"},
                                     {"in.png", "image/png"}})
      server_.Serve(skin_.File(file), skin_.Read(file), type);
    for (const QByteArray& origin : {QByteArray("feedloom://page"), Url("").toUtf8()}) {
      ExpectNoHits({attack});
      const QByteArray address = origin + Bytes(skin_.Path());
      Visit("/web", Html({attack}).replace("ADDRESS", address).toStdString());
      Settle();
    }
    ExpectHits({attack});
  }
}

TEST_F(SafetyBorders, AGeneratedPageSeesNoOther) {
  const QByteArray other = "<img src=\"HIT\">";
  const auto frames = [](const QUrl& url) {
    const QByteArray html =
        "<iframe src=\"%\"></iframe><object data=\"%\"></object><embed src=\"%\">";
    return QByteArray(html).replace("%", url.toEncoded());
  };
  Write(Post(Html({other})));
  Settle();
  ShowAndSettle(Post(frames(Page().url())));
  EXPECT_EQ(Hits(other), 1);
  WritePlain(Post(Html({other})));
  EXPECT_TRUE(ComesTrue([&] { return Hits(other) == 2; }));
  WritePlain(frames(plain_.url()));
  EXPECT_TRUE(ComesTrue([&] { return Hits(other) > 2; }));
}

TEST_F(SafetyBorders, TheScriptsOfAWebPageGoWithIt) {
  const QByteArray tick = "<script>setInterval(() => { RUN + '?' + Math.random() }, 5)</script>";
  Visit("/web", Html({tick}).toStdString());
  EXPECT_TRUE(ComesTrue([&] { return Hits(tick) > 2; }));
  Write(Post("mine"));
  const int seen = Hits(tick);
  Settle();
  EXPECT_EQ(Hits(tick), seen);
}

}  // namespace
}  // namespace feedloom
