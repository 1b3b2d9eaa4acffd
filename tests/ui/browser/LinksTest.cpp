// Where the links and pictures of posts lead, and how the pane says it.
#include <QLabel>

#include "net/ProxySettings.h"
#include "ui/browser/BrowserFixture.h"
#include "ui/browser/LinkStrip.h"

namespace feedloom {
namespace {

class Links : public BrowserFixture {
 protected:
  Links() {
    frame_.services.openExternally = [this](const QUrl& url) {
      return outside_.push_back(url), true;
    };
  }
  PostRow WithLink(const std::string& href) const {
    return Post("post", "/a/b.html?p=1", "<a id=l href='" + href + "'>link</a><p id=part>.");
  }
  std::string OnOtherPort(const std::string& path) const {
    return "//127.0.0.1:" + std::to_string(server_.Port()) + path;
  }
  QString Strip() const {
    const auto& strip = *pane_.findChild<LinkStrip*>();
    return strip.isVisible() ? strip.text().remove("<b>").remove("</b>") : "";
  }

  std::vector<QUrl> outside_;
};

TEST_F(Links, RelativeOnesOfAPostLeadToItsServerInThePaneAndInANewWindow) {
  for (const auto& [href, path] :
       std::vector<std::pair<std::string, std::string>>{{"story", "/a/story"},
                                                        {"../up", "/up"},
                                                        {"/root?x=1#y", "/root?x=1#y"},
                                                        {OnOtherPort("/other"), "/other"},
                                                        {"?q=2", "/a/b.html?q=2"},
                                                        {"story' target='_blank", "/a/story"}}) {
    Show(WithLink(href));
    WaitForPage([&] { Click("#l"); });
    EXPECT_EQ(Address().text().toStdString(), server_.Url(path)) << href;
  }
}

// The page stays itself with a part in its address: a redirect of its links is the server's.
TEST_F(Links, APartOfThePageIsFoundInIt) {
  server_.Redirect("/moved", "/story");
  server_.Serve("/story", "The story", "text/html");
  Show(Post("post", "/a/b.html", "<a id=l href='#part'>link</a><a id=m href='/moved'>moved</a>"));
  Click("#l");
  EXPECT_TRUE(ComesTrue([&] { return Page().url().fragment() == "part"; }));
  EXPECT_TRUE(view_.IsWritten());
  WaitForPage([&] { Click("#m"); });
  EXPECT_EQ(Text(), "The story");
  WaitForPage([&] { view_.GoBack(); });
  EXPECT_TRUE(Text().contains("About post"));
}

TEST_F(Links, RelativePicturesOfAPostComeFromItsServerUnlessTheUserWantsNone) {
  const std::string gif = QByteArray::fromBase64("R0lGODlhAQABAAAAACwAAAAAAQABAAA=").toStdString();
  for (const char* path : {"/a/near.gif", "/root.gif", "/other.gif", "/a/set.gif"})
    server_.Serve(path, gif, "image/gif");
  const std::string html = "<img src=near.gif><img src=/root.gif><img src='" +
                           OnOtherPort("/other.gif") + "'><img srcset='set.gif 1x'>";
  // What a page may not load from the web is not loaded from its server either.
  const std::string hostile =
      "<link rel=stylesheet href=x.css><script src=x.js></script><iframe src=x.html></iframe>";
  Show(Post("post", "/a/b.html", html + hostile));
  const QString widths = "[...document.querySelectorAll('#disc-0 img')].map(i => i.naturalWidth)";
  EXPECT_TRUE(ComesTrue([&] { return Evaluate(widths) == QVariantList({1, 1, 1, 1}); }));
  for (const char* path : {"/a/x.css", "/a/x.js", "/a/x.html"})
    EXPECT_EQ(server_.Requests(path), 0) << path;
  const int requests = server_.Requests("/a/near.gif");
  ASSERT_TRUE(frame_.registry.WriteDword(kModuleKey, kValueBlockRemoteImages, 1));
  Show(Post("post", "/a/b.html", html));
  LetEngineFinish();
  Visit("/settled", "the server has seen all that was asked before");
  EXPECT_EQ(server_.Requests("/a/near.gif"), requests);
}

TEST_F(Links, TheStripShowsWhereALinkLeadsWhileThePointerOrTheKeyboardIsOnIt) {
  Show(WithLink("http://www.example.com@h.example/%E2%80%AEx"));
  frame_.messages.clear();
  EXPECT_EQ(Strip(), "");
  QTest::mouseMove(&Surface(), PlaceOf("#l"));
  EXPECT_TRUE(ComesTrue([&] { return Strip() == "http://h.example/%E2%80%AEx"; }));
  QTest::mouseMove(&Surface(), PlaceOf("#part"));
  EXPECT_TRUE(ComesTrue([&] { return Strip().isEmpty(); }));
  Show(WithLink("story"));
  Evaluate("document.getElementById('l').focus()");
  EXPECT_TRUE(ComesTrue([&] { return Strip() == Url("/a/story"); }));
  EXPECT_TRUE(frame_.messages.empty());
  Show(Post("another", "/"));
  EXPECT_EQ(Strip(), "");
}

// A form's field hides a member of the form from scripts that don't look for it elsewhere.
TEST_F(Links, ARefusedOneIsSaidWhereverItIsClicked) {
  Show(Post("post", "/a",
            "<a href='javascript:x'><form id=l style='padding:40px'>"
            "<input type=hidden name=closest></form></a>"));
  Click("#l");
  EXPECT_TRUE(ComesTrue([&] { return IsLastMessageWith("javascript:x"); }));
}

TEST_F(Links, AVideoInAPostIsALineWithALink) {
  Show(Post("post", "/a",
            "<iframe src='https://www.youtube.com/embed/abc'></iframe>"
            "<iframe width=1 height=1 src='https://unknown.example/'></iframe>"));
  EXPECT_TRUE(
      ComesTrue([&] { return Text().contains("동영상: https://www.youtube.com/watch?v=abc"); }));
  EXPECT_EQ(Evaluate("document.querySelector('#disc-0 a').href"),
            "https://www.youtube.com/watch?v=abc");
  EXPECT_EQ(Evaluate("document.querySelectorAll('iframe').length"), 1);
}

TEST_F(Links, OpenInTheSystemsBrowserWhenTheUserWantsThat) {
  frame_.skin.SetHostValue(kValuePostLinks, kLinksOutside);
  Show(WithLink("story"));
  Click("#l");
  EXPECT_TRUE(ComesTrue([&] { return outside_ == std::vector<QUrl>{Url("/a/story")}; }));
  Go(Url("/typed"));
  EXPECT_EQ(outside_.back(), Url("/typed"));
  pane_.SetMode(0);
  Show(WithLink("story"));
  EXPECT_TRUE(view_.IsWritten());
  EXPECT_EQ(
      server_.Requests("/a/story") + server_.Requests("/typed") + server_.Requests("/a/b.html"), 0);
}

}  // namespace
}  // namespace feedloom
