// Hostile texts of posts in the real engine: nothing runs, nothing is asked for but images, nothing
// navigates by itself.
#include "ui/browser/SafetyFixture.h"

namespace feedloom {
namespace {

// Each needs nobody's help. The first one's policy allows all the others.
const Attacks kAttacks = List(R"--(
<meta http-equiv=Content-Security-Policy content="default-src * 'unsafe-inline' data:"><script>RUN</script>
<base href="ORIGIN/hit/"><img src="NAME">  <script>RUN</script>  <script src="HIT"></script>
<script type=module>RUN</script>  <img src=x: onerror="RUN">  <img src="IMAGE" onload="RUN">
<details open ontoggle="RUN">x</details>  <input autofocus onfocus="RUN">  <body onload="RUN">
<style>@keyframes k { to { opacity: 0.5 } }</style><b style="animation: k 1ms" onanimationstart="RUN">x</b>
<video><source src=x: onerror="RUN"></video>  <svg onload="RUN"></svg>  <svg><script>RUN</script></svg>
<svg><script href="HIT"></script></svg>  <svg><animate attributeName=x dur=1s onbegin="RUN"></animate></svg>
<svg><foreignObject><img src=x: onerror="RUN"></foreignObject></svg>
<iframe src="javascript:void(RUN)"></iframe>  <iframe src="data:text/html,<script>RUN</script>"></iframe>
<iframe srcdoc="<script>RUN</script>"></iframe>  <link rel=stylesheet href="HIT">
<style>@font-face { font-family: f; src: url('HIT') }</style><b style='font-family:f'>x</b>
<style>@import 'HIT';</style>  <link rel=prefetch href="HIT">  <link rel=preload as=script href="HIT">
<link rel=modulepreload href="HIT">
)--");
// The player's page may have these from the web.
const Attacks kFrames = List(R"--(
<iframe src="HIT"></iframe>  <svg><foreignObject><iframe src="HIT"></iframe></foreignObject></svg>
<object data="HIT"></object>  <embed src="HIT">  <video src="HIT" autoplay></video>
<audio src="HIT" autoplay></audio>
)--");

TEST_F(Safety, NothingRunsFromAnyFieldOfAPost) {
  const QByteArray all = "\">" + Html(kAttacks + kFrames);
  for (std::size_t field = 0; field < 5; ++field) {
    ShowAndSettle(Built(PageKind::Post, With(field, all)));
    ShowAndSettle(Built(PageKind::Podcast, With(field, all)), PageKind::Podcast);
  }
  ShowAndSettle(Built(PageKind::Player, With(kLink, "x\">" + Html(kAttacks))), PageKind::Player);
  ExpectNoHits(kAttacks + kFrames);
  WritePlain(Post(all));
  ExpectHits(kAttacks + kFrames);
}

// These are shown unless the user wants no images from the web.
const Attacks kImages = List(R"--(
<img src="HIT">  <iframe srcdoc="<img src='HIT'>"></iframe>
<img srcset="HIT 1x">  <table background="HIT"><tr><td>x</table>  <video poster="HIT"></video>
<b style="background:url('HIT')">x</b>  <input type=image src="HIT">
<svg><image width=9 height=9 href="HIT"></image></svg>
)--");

TEST_F(Safety, WithoutImagesTheAuthorLearnsNothing) {
  const QByteArray html = Post(Html(kImages));
  Write(html, PageKind::Post, false);
  Settle();
  ExpectNoHits(kImages);
  Write(html);
  Settle();
  EXPECT_EQ(Hits(kImages[0]), 1);
  WritePlain(html);
  ExpectHits(kImages);
}

TEST_F(Safety, NothingNavigatesByItself) {
  const QByteArray file = FileUrl(skin_.Write("file.html", "a file")).toEncoded();
  for (const QByteArray& target : {Url("/web").toUtf8(), Url("/ID_BTN_RSSADD?0").toUtf8(), file,
                                   QByteArray("ID_BTN_RSSSCRAP?0")}) {
    const QByteArray refresh = "\"><meta http-equiv=refresh content=\"0;url=" + target + "\">";
    for (std::size_t field = 0; field < 5; ++field)
      ShowAndSettle(Built(PageKind::Podcast, With(field, refresh)), PageKind::Podcast);
    ShowAndSettle(Built(PageKind::Player, With(kLink, refresh)), PageKind::Player);
    // Without the defence, too, only a file leads to a file.
    QSignalSpy left(&plain_, &QWebEnginePage::urlChanged);
    target == file ? WritePlainFile(refresh) : WritePlain(refresh);
    EXPECT_TRUE(ComesTrue([&] { return left.count() > 1; })) << target.data();
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
<label for=s COVER>x</label><form action="HIT"><input id=s type=submit></form>
)--");

TEST_F(Safety, AClickRunsNothingAndSendsNothing) {
  for (const QByteArray& trap : kTraps) {
    ShowAndSettle(Post(Html({trap})), PageKind::Post, true);
    ExpectNoHits({trap});
    WritePlain(Post(Html({trap})));
    ClickPlain();
    ExpectHits({trap});
  }
}

}  // namespace
}  // namespace feedloom
