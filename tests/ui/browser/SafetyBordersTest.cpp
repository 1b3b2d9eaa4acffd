// Hostile posts and web pages in the real engine: what is between the web, the module's pages and
// the machine's files, and the moments when one takes the other's place.
#include <filesystem>
#include <tuple>

#include "ui/browser/SafetyFixture.h"

namespace feedloom {
namespace {

// What a page gets at shows in the width of its element "probe", 77 pixels, or as a request.
class SafetyBorders : public SafetyFixture {
 protected:
  SafetyBorders() {
    QImage image(77, 5, QImage::Format_RGB32);
    image.fill(Qt::green);
    EXPECT_TRUE(image.save(SkinPath("in.png")));
    EXPECT_TRUE(image.save(QString::fromStdString(files_.File("a.png"))));
    files_.Write("a.css", "#probe { width: 77px }");
  }

  static constexpr char kProbeWidth[] = "document.getElementById('probe').offsetWidth";

  TempFolder files_;
};

// FILE is the beginning of the files' names; those with requests are of the attack's own.
constexpr Attack kReads[] = {
    {"img", "<img id=probe src=\"FILE.png\">"},
    {"css", "<b id=probe style=\"display:inline-block;content:url('FILE.png')\"></b>"},
    {"style sheet", "<link rel=stylesheet href=\"FILE.css\"><div id=probe></div>"},
    {"import", "<style>@import 'FILE.css';</style><div id=probe></div>"},
};
constexpr Attack kFrames[] = {
    {"iframe", "<iframe src=\"FILE.html\"></iframe>"},
    {"object", "<object data=\"FILE.html\"></object>"},
    {"embed", "<embed src=\"FILE.html\">"},
};

TEST_F(SafetyBorders, NoFileIsRead) {
  const auto in = [&](const char* html, const QByteArray& file) {
    return WithDescription(QByteArray(html).replace("FILE", file));
  };
  const QByteArray path = QByteArray::fromStdString(files_.File("a"));
  for (const Attack& attack : kReads) {
    for (const QByteArray& file : {"file://" + path, path, "feedloom://page" + path}) {
      ShowAndSettle(in(attack.html, file));
      EXPECT_NE(Ask(Page(), kProbeWidth), 77) << attack.name;
    }
    undefended_.WriteAsFile(in(attack.html, "file://" + path));
    EXPECT_EQ(Ask(undefended_.Page(), kProbeWidth), 77) << attack.name;
  }
  for (const Attack& attack : kFrames) {
    files_.Write("a.html", Html({attack.name, "<img src=\"HIT\">"}).toStdString());
    for (const PageKind kind : {PageKind::Post, PageKind::Player}) {
      Fields fields = kHarmless;
      fields[kLink] =
          "\">" + QByteArray(attack.html).replace("FILE", "file://" + path).toStdString();
      ShowAndSettle(Built(kind, fields), kind);
    }
    EXPECT_EQ(Hits(attack.name), 0) << attack.name;
    undefended_.WriteAsFile(in(attack.html, "file://" + path));
    EXPECT_TRUE(ComesTrue([&] { return Hits(attack.name) > 0; })) << attack.name;
  }
}

struct PathCase {
  std::string address;
  bool isShown;
};

// `skin` holds in.png and three links, `file` lies in a folder `name` beside it.
std::vector<PathCase> Paths(const std::string& skin, const std::string& name,
                            const std::string& file) {
  return {
      {skin + "/in.png", true},
      {skin + "/good.png", true},
      {skin + "/./x/%2e%2e/in.png", true},
      {file, false},
      {"feedloom://page" + file, false},
      {"feedloom://other" + file, false},
      {"feedloom:" + file, false},
      {skin + "/link.png", false},
      {skin + "/dir/a.png", false},
      {skin + "/../" + name + "/a.png", false},
      {skin + "/%2e%2e/" + name + "/a.png", false},
      {skin + "/..%2f" + name + "/a.png", false},
      {skin + "/%2e%2e%2f" + name + "%2fa.png", false},
      {skin + "%2f%2e%2e%2f" + name + "%2fa.png", false},
      {skin + "/..%5c" + name + "%5ca.png", false},
      {skin + "/..\\" + name + "\\a.png", false},
      {skin + "/%252e%252e/" + name + "/a.png", false},
      {skin + "/in.png/../../" + name + "/a.png", false},
      {file + "%00" + skin + "/in.png", false},
      {"//page" + file, false},
  };
}

TEST_F(SafetyBorders, NoPathLeadsOutOfTheSkin) {
  std::filesystem::create_symlink(files_.File("a.png"), skin_.File("link.png"));
  std::filesystem::create_directory_symlink(files_.Path(), skin_.File("dir"));
  std::filesystem::create_symlink(skin_.File("in.png"), skin_.File("good.png"));
  const auto cases =
      Paths(skin_.Path(), std::filesystem::path(files_.Path()).filename(), files_.File("a.png"));
  QByteArray html;
  for (const PathCase& test : cases)
    html += "<img src=\"" + QByteArray::fromStdString(test.address) + "\">";
  ShowAndSettle(WithDescription(html));
  const QVariantList widths =
      Evaluate("[...document.querySelectorAll('#disc-0 img')].map(img => img.naturalWidth)")
          .toList();
  ASSERT_EQ(widths.size(), std::ssize(cases));
  for (qsizetype i = 0; i < widths.size(); ++i) {
    const PathCase& test = cases[static_cast<std::size_t>(i)];
    EXPECT_EQ(widths[i].toInt() > 0, test.isShown) << test.address;
  }
}

// Handlers that wait for their moment, of which the engine itself forgets those that came while
// scripts were off; a link does not depend on that.
constexpr Attack kPatient[] = {
    {"animation",
     "<style>@keyframes k { to { opacity: 0.5 } }</style>"
     "<b style=\"animation: k 10ms infinite\" onanimationiteration=\"RUN\">x</b>"},
    {"svg repeat",
     "<svg><animate attributeName=x dur=20ms repeatCount=indefinite "
     "onrepeat=\"RUN\"></animate></svg>"},
};

constexpr Attack kTrap[] = {{"link", "<a href=\"javascript:void(RUN)\" COVER>x</a>"}};

TEST_F(SafetyBorders, NothingRunsWhileANavigationIsPending) {
  const QByteArray html = WithDescription(Html(kPatient) + Html(kTrap));
  server_.Hang("/hang");
  WriteWhole(html);
  view_.Navigate(Url("/hang"));
  EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/hang") > 0; }));
  Click();
  Settle(Page());
  EXPECT_TRUE(view_.IsWritten());
  view_.Stop();
  Click();
  Settle(Page());
  ExpectNoHits(kPatient);
  ExpectNoHits(kTrap);

  // Without a policy the engine's switch for scripts, which the navigation turns, lets them run.
  QWebEngineSettings* const settings = undefended_.Page().settings();
  settings->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
  undefended_.Write(html);
  settings->setAttribute(QWebEngineSettings::JavascriptEnabled, true);
  LetLive(undefended_.Page());
  QTest::mouseClick(undefended_.Surface(), Qt::LeftButton, {}, {50, 50});
  ExpectHits(kTrap);
  undefended_.Write(html);
  ExpectHits(kPatient);
}

// While a navigation is pending a page could pass its own for what the server has ordered.
TEST_F(SafetyBorders, APageLeadsNowhereWhileANavigationIsPending) {
  server_.Hang("/hang");
  const QByteArray html =
      WithDescription(Html({"trap", "<meta http-equiv=\"re&#102;resh\" content=\"1;url=HIT\">"}));
  WriteWhole(html);
  view_.Navigate(Url("/hang"));
  EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/hang") > 0; }));
  Settle(Page(), 1500);
  EXPECT_EQ(Hits("trap"), 0);
  EXPECT_TRUE(view_.IsWritten());
  undefended_.Write(html);
  EXPECT_TRUE(ComesTrue([&] { return Hits("trap") > 0; }));
}

TEST_F(SafetyBorders, AFrameThatComesWhileANavigationIsPendingRunsNothing) {
  server_.Hang("/hang");
  server_.Serve("/next", Html({"frame", "<script>RUN</script>"}).toStdString(), "text/html");
  server_.Serve("/frame", "<meta http-equiv=refresh content=\"1;url=/next\">", "text/html");
  Fields fields = kHarmless;
  fields[kLink] = server_.Url("/frame");
  ShowAndSettle(Built(PageKind::Player, fields), PageKind::Player);
  view_.Navigate(Url("/hang"));
  EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/hang") > 0; }));
  Settle(Page(), 1500);
  EXPECT_EQ(Hits("frame"), 0);
  undefended_.Write(Built(PageKind::Player, fields));
  EXPECT_TRUE(ComesTrue([&] { return Hits("frame") > 0; }));
}

// No dialog that asks for a place opens.
TEST_F(SafetyBorders, APostDownloadsNothingByItself) {
  downloadPlace_ = QString::fromStdString(files_.File("taken"));
  server_.Serve("/file", "PK", "application/zip");
  Fields fields = kHarmless;
  fields[kLink] = server_.Url("/file");
  ShowAndSettle(Built(PageKind::Player, fields), PageKind::Player);
  EXPECT_GT(server_.Requests("/file"), 0);
  Settle(Page(), 300);
  EXPECT_FALSE(std::filesystem::exists(files_.File("taken")));
  Write(Link(server_.Url("/file")));
  Click();
  EXPECT_TRUE(ComesTrue([&] { return std::filesystem::exists(files_.File("taken")); }));
}

TEST_F(SafetyBorders, AFrameInThePlayerRunsNothingEvenWhileANavigationIsPending) {
  server_.Hang("/hang");
  server_.Serve(
      "/frame",
      Html(kPatient).toStdString() + Html({"frame", "<script>RUN</script>"}).toStdString(),
      "text/html");
  Fields fields = kHarmless;
  fields[kLink] = server_.Url("/frame");
  ShowAndSettle(Built(PageKind::Player, fields), PageKind::Player);
  EXPECT_GT(server_.Requests("/frame"), 0);
  EXPECT_EQ(Hits("frame"), 0);
  ExpectNoHits(kPatient);
  view_.Navigate(Url("/hang"));
  EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/hang") > 0; }));
  Settle(Page());
  ExpectNoHits(kPatient);

  undefended_.Write(Built(PageKind::Player, fields));
  ExpectHits(kPatient);
  EXPECT_TRUE(ComesTrue([&] { return Hits("frame") > 0; }));
}

TEST_F(SafetyBorders, ThePlayersMediaFileIsPlayed) {
  std::string wave(
      "RIFF\x24\x08\0\0WAVEfmt "
      "\x10\0\0\0\x01\0\x01\0\x40\x1F\0\0\x40\x1F\0\0\x01\0\x08\0data\0\x08\0\0",
      44);
  wave.append(2048, '\x80');
  server_.Serve("/a.wav", wave, "audio/wav");
  server_.Redirect("/moved", server_.Url("/a.wav"));
  for (const char* const address : {"/a.wav", "/moved"}) {
    const int before = server_.Requests("/a.wav");
    Fields fields = kHarmless;
    fields[kLink] = server_.Url(address);
    ShowAndSettle(Built(PageKind::Player, fields), PageKind::Player);
    // The engine asks once for the frame and once more for what plays in it.
    EXPECT_TRUE(ComesTrue([&] { return server_.Requests("/a.wav") >= before + 2; })) << address;
    EXPECT_EQ(server_.LastHeader("/a.wav", "Range"), "bytes=0-");
  }
}

TEST_F(SafetyBorders, APostDoesNotBreakItsButtons) {
  const QByteArray clobbers =
      "<img name=querySelectorAll><form id=forms name=querySelector><input name=id></form>"
      "<img id=location><img id=navigator><form name=activeElement></form>"
      "<img id=addEventListener><img id=requestAnimationFrame><img id=console><img name=title>";
  const QByteArray save = "<a COVER href=\"ID_BTN_RSSSCRAP?0\">x</a>";
  const QByteArray html = WithDescription("words" + clobbers + Html({"", save.constData()}));
  undefended_.Write(html + "<script>if (typeof document.querySelectorAll !== 'function') {" +
                    Html({"clobbers", "RUN"}) + "}</script>");
  EXPECT_TRUE(ComesTrue([&] { return Hits("clobbers") > 0; }));
  WriteWhole(html);
  Click();
  ASSERT_TRUE(ComesTrue([&] { return !actions_.empty(); }));
  EXPECT_EQ(actions_[0].first, (PageAction{PageAction::SavePost, 0}));
  const QStringList& texts = actions_[0].second;
  ASSERT_EQ(texts.size(), 4);
  EXPECT_EQ(texts[0], "A title");
  EXPECT_EQ(texts[1], "http://127.0.0.1/post");
  EXPECT_TRUE(texts[2].startsWith("words")) << texts[2].toStdString();
  EXPECT_EQ(texts[3], "2024-05-06 07:08:09");

  WriteWhole(WithDescription("words" + clobbers + Html({"", "<a COVER href=\"tel:123\">x</a>"})));
  Click();
  EXPECT_TRUE(WasReported(BrowserReport::LinkRefused, "tel:123"));
}

// The last element of a name counts, and a title holds markup as a text: the buttons may read
// anything, and showing it again is as safe as before.
TEST_F(SafetyBorders, ForgedTextsThatWereReadAreHarmlessWhenTheyAreShown) {
  WriteWhole(WithDescription(
      Html({"forged",
            "<div id=TITLE-0 title=\"&lt;script&gt;RUN&lt;/script&gt;\"></div>"
            "<div id=Scraplink-0 title=\"&quot;>&lt;img src=x: onerror=&quot;RUN&quot;&gt;\"></div>"
            "<a COVER href=\"ID_BTN_RSSSCRAP?0\">x</a>"})));
  EXPECT_TRUE(actions_.empty());
  Click();
  ASSERT_TRUE(ComesTrue([&] { return !actions_.empty(); }));
  Fields read = kHarmless;
  for (const Field field : {kTitle, kLink, kDescription, kDate}) {
    read[field] = actions_[0].second.value(field).toStdString();
  }
  EXPECT_TRUE(read[kTitle].starts_with("<script>")) << read[kTitle];
  actions_.clear();
  ShowAndSettle(Built(PageKind::Post, read));
  EXPECT_EQ(Hits("forged"), 0);
  undefended_.Write(Built(PageKind::Post, read));
  EXPECT_TRUE(ComesTrue([&] { return Hits("forged") > 0; }));
}

// ADDRESS is the beginning of the files' names.
constexpr Attack kPeeks[] = {
    {"img", "<img src=\"ADDRESS/in.png\" onload=\"RUN\">"},
    {"style sheet", "<link rel=stylesheet href=\"ADDRESS/a.css\" onload=\"RUN\">"},
    {"script", "<script src=\"ADDRESS/a.js\" onload=\"RUN\"></script>"},
    {"fetch", "<script>fetch('ADDRESS/a.js').then(() => { RUN })</script>"},
    {"frame", "<iframe src=\"ADDRESS/a.html\"></iframe>"},
    {"location", "<script>setTimeout(() => { location = 'ADDRESS/a.html' })</script>"},
};

TEST_F(SafetyBorders, AWebPageSeesNothingOfTheSkin) {
  for (const Attack& attack : kPeeks) {
    const std::string answer = Html({attack.name, "<img src=\"HIT\">"}).toStdString();
    for (const auto& [file, bytes, type] :
         {std::tuple("a.css", std::string("b{}"), "text/css"),
          std::tuple("a.js", std::string("1"), "text/javascript"),
          std::tuple("a.html", answer, "text/html"),
          std::tuple("in.png", skin_.Read("in.png"), "image/png")}) {
      skin_.Write(file, bytes);
      server_.Serve(skin_.File(file), bytes, type);
    }
    const auto visit = [&](const std::string& origin) {
      const QByteArray address = QByteArray::fromStdString(origin + skin_.Path());
      Visit("/web", Html(attack).replace("ADDRESS", address).toStdString());
      LetLive(Page());
    };
    visit("feedloom://page");
    Settle(Page());
    EXPECT_EQ(Hits(attack.name), 0) << attack.name;
    EXPECT_EQ(view_.Address(), Url("/web"));
    visit(server_.Url(""));
    EXPECT_TRUE(ComesTrue([&] { return Hits(attack.name) > 0; })) << attack.name;
  }
}

TEST_F(SafetyBorders, AGeneratedPageSeesNoOther) {
  WriteWhole(WithDescription(Html({"other", "<img src=\"HIT\">"})));
  Settle(Page());
  const QByteArray other = Page().url().toEncoded();
  const int seen = Hits("other");
  const QByteArray frames = "<iframe src=\"" + other + "\"></iframe><object data=\"" + other +
                            "\"></object><embed src=\"" + other + "\">";
  ShowAndSettle(WithDescription(frames));
  EXPECT_EQ(Hits("other"), seen);

  const QUrl undefendedOther =
      undefended_.Write(WithDescription(Html({"other", "<img src=\"HIT\">"})));
  EXPECT_TRUE(ComesTrue([&] { return Hits("other") > seen; }));
  const int seenThen = Hits("other");
  undefended_.Write(QByteArray(frames).replace(other, undefendedOther.toEncoded()));
  EXPECT_TRUE(ComesTrue([&] { return Hits("other") > seenThen; }));
}

// The script of a web page that is on display goes with it.
TEST_F(SafetyBorders, AWebPageLeavesNothingBehind) {
  Visit("/web",
        Html({"tick", "<script>setInterval(() => { RUN + '?' + Math.random() }, 5)</script>"})
            .toStdString());
  EXPECT_TRUE(ComesTrue([&] { return Hits("tick") > 2; }));
  WriteWhole(WithDescription("mine"));
  const int seen = Hits("tick");
  Settle(Page());
  EXPECT_EQ(Hits("tick"), seen);
  EXPECT_TRUE(view_.IsWritten());
}

}  // namespace
}  // namespace feedloom
