// Hostile texts of posts in the real engine: nothing runs, nothing is asked for but pictures,
// nothing local is read, nothing navigates by itself.
#include "ui/browser/SafetyFixture.h"

namespace feedloom {
namespace {

class Safety : public SafetyFixture {
 protected:
  // Without the defence.
  bool LeadsAway(const QByteArray& html, bool isFile) {
    const QUrl shown = isFile ? undefended_.WriteAsFile(html) : undefended_.Write(html);
    return ComesTrue([&] { return undefended_.Page().url() != shown; });
  }
};

// Each needs nobody's help. The first one's policy allows all the others.
constexpr Attack kAttacks[] = {
    {"own policy",
     "<meta http-equiv=Content-Security-Policy content=\"default-src * 'unsafe-inline' "
     "'unsafe-eval' data: blob: feedloom:\"><script>RUN</script>"},
    {"base", "<base href=\"ORIGIN/hit/\"><img src=\"base\">"},
    {"script", "<script>RUN</script>"},
    {"script file", "<script src=\"HIT\"></script>"},
    {"module", "<script type=module>RUN</script>"},
    {"onerror", "<img src=x: onerror=\"RUN\">"},
    {"onload",
     "<img src=\"data:image/gif;base64,R0lGODlhAQABAAAAACwAAAAAAQABAAA=\" onload=\"RUN\">"},
    {"ontoggle", "<details open ontoggle=\"RUN\">x</details>"},
    {"onfocus", "<input autofocus onfocus=\"RUN\">"},
    {"body onload", "<body onload=\"RUN\">"},
    {"onanimationstart",
     "<style>@keyframes k { to { opacity: 0.5 } }</style>"
     "<b style=\"animation: k 1ms\" onanimationstart=\"RUN\">x</b>"},
    {"source onerror", "<video><source src=x: onerror=\"RUN\"></video>"},
    {"svg onload", "<svg onload=\"RUN\"></svg>"},
    {"svg script", "<svg><script>RUN</script></svg>"},
    {"svg script file", "<svg><script href=\"HIT\"></script></svg>"},
    {"svg onbegin", "<svg><animate attributeName=x dur=1s onbegin=\"RUN\"></animate></svg>"},
    {"foreignObject script",
     "<svg><foreignObject><img src=x: onerror=\"RUN\"></foreignObject></svg>"},
    {"iframe javascript", "<iframe src=\"javascript:void(RUN)\"></iframe>"},
    {"iframe data", "<iframe src=\"data:text/html,<script>RUN</script>\"></iframe>"},
    {"srcdoc", "<iframe srcdoc=\"<script>RUN</script>\"></iframe>"},
    {"style sheet", "<link rel=stylesheet href=\"HIT\">"},
    {"import", "<style>@import 'HIT';</style>"},
    {"font",
     "<style>@font-face { font-family: f; src: url('HIT') }</style><b style='font-family:f'>x</b>"},
    {"prefetch", "<link rel=prefetch href=\"HIT\">"},
    {"preload", "<link rel=preload as=script href=\"HIT\">"},
    {"module preload", "<link rel=modulepreload href=\"HIT\">"},
};

// The player's page may have frames and media from the web.
constexpr Attack kFrames[] = {
    {"iframe", "<iframe src=\"HIT\"></iframe>"},
    {"foreignObject", "<svg><foreignObject><iframe src=\"HIT\"></iframe></foreignObject></svg>"},
    {"object", "<object data=\"HIT\"></object>"},
    {"embed", "<embed src=\"HIT\">"},
    {"video", "<video src=\"HIT\" autoplay></video>"},
    {"audio", "<audio src=\"HIT\" autoplay></audio>"},
};

TEST_F(Safety, NothingRunsFromAnyFieldOfAPost) {
  const QByteArray all = "\">" + Html(kAttacks) + Html(kFrames);
  for (const PageKind kind : {PageKind::Post, PageKind::Podcast}) {
    for (const Field field : {kTitle, kLink, kDescription, kDate, kFeedUrl}) {
      Fields fields = kHarmless;
      fields[field] = all.toStdString();
      ShowAndSettle(Built(kind, fields), kind);
    }
  }
  Fields fields = kHarmless;
  fields[kLink] = "x\">" + Html(kAttacks).toStdString();
  ShowAndSettle(Built(PageKind::Player, fields), PageKind::Player);
  ExpectNoHits(kAttacks);
  ExpectNoHits(kFrames);

  undefended_.Write(WithDescription(all));
  ExpectHits(kAttacks);
  ExpectHits(kFrames);
}

// These are shown unless the user wants no pictures of the web.
constexpr Attack kPictures[] = {
    {"img", "<img src=\"HIT\">"},
    {"srcdoc picture", "<iframe srcdoc=\"<img src='HIT'>\"></iframe>"},
    {"srcset", "<img srcset=\"HIT 1x\">"},
    {"background", "<table background=\"HIT\"><tr><td>x</table>"},
    {"css", "<b style=\"background:url('HIT')\">x</b>"},
    {"poster", "<video poster=\"HIT\"></video>"},
    {"input", "<input type=image src=\"HIT\">"},
    {"svg image", "<svg><image width=9 height=9 href=\"HIT\"></image></svg>"},
};

TEST_F(Safety, WithoutPicturesTheAuthorLearnsNothing) {
  const QByteArray html = WithDescription(Html(kPictures));
  WaitForPage([&] { view_.WritePageToBrowser({html, PageKind::Post, {}, false}); });
  Settle(Page());
  ExpectNoHits(kPictures);
  undefended_.Write(html);
  ExpectHits(kPictures);
}

TEST_F(Safety, NothingNavigatesByItself) {
  const std::string file = "file://" + skin_.Write("file.html", "a file");
  for (const std::string& target : {server_.Url("/web"), server_.Url("/ID_BTN_RSSADD?0"), file,
                                    std::string("ID_BTN_RSSSCRAP?0")}) {
    const std::string refresh = "\"><meta http-equiv=refresh content=\"0;url=" + target + "\">";
    for (const Field field : {kTitle, kLink, kDescription, kDate, kFeedUrl}) {
      Fields fields = kHarmless;
      fields[field] = refresh;
      ShowAndSettle(Built(PageKind::Podcast, fields), PageKind::Podcast);
      if (field == kLink) ShowAndSettle(Built(PageKind::Player, fields), PageKind::Player);
    }
    // No page of another kind leads to a file, without the defence either.
    const QByteArray html = WithDescription(QByteArray::fromStdString(refresh));
    EXPECT_TRUE(LeadsAway(html, target == file)) << target;
  }
}

// Each needs the user's click on it.
constexpr Attack kTraps[] = {
    {"onclick", "<b onclick=\"RUN\" COVER>x</b>"},
    {"javascript link", "<a href=\"javascript:void(RUN)\" COVER>x</a>"},
    {"svg link",
     "<svg COVER><a xlink:href=\"javascript:void(RUN)\"><rect width=300 "
     "height=200></rect></a></svg>"},
    {"area",
     "<img COVER usemap=#m src=\"data:image/gif;base64,R0lGODlhAQABAAAAACwAAAAAAQABAAA=\">"
     "<map name=m><area shape=default href=\"javascript:void(RUN)\"></map>"},
    {"form", "<form action=\"HIT\"><input type=submit COVER></form>"},
    {"form javascript", "<form action=\"javascript:void(RUN)\"><input type=submit COVER></form>"},
    {"formaction", "<form><button formaction=\"HIT\" COVER>x</button></form>"},
    {"form post", "<form method=post action=\"HIT\"><input type=image COVER></form>"},
    {"label", "<label for=s COVER>x</label><form action=\"HIT\"><input id=s type=submit></form>"},
};

TEST_F(Safety, AClickRunsNothingAndSendsNothing) {
  for (const Attack& trap : kTraps) {
    const QByteArray html = WithDescription(Html(trap));
    WriteWhole(html);
    const QUrl shown = Page().url();
    Click();
    Settle(Page());
    EXPECT_EQ(Page().url(), shown) << trap.name;
    ExpectNothingOpen();
    EXPECT_EQ(Hits(trap.name), 0) << trap.name;

    undefended_.Write(html);
    LetLive(undefended_.Page());
    QTest::mouseClick(undefended_.Surface(), Qt::LeftButton, {}, {50, 50});
    EXPECT_TRUE(ComesTrue([&] { return Hits(trap.name) > 0; })) << trap.name << " is no trap";
  }
}

}  // namespace
}  // namespace feedloom
