// Where the links and pictures of posts lead, and how the pane says it.
#include "ui/browser/BrowserFixture.h"
#include "ui/browser/PageRules.h"
#include "ui/browser/PostAddresses.h"

namespace feedloom {
namespace {

class Links : public BrowserFixture {
 protected:
  // Clicks the element in the page of a post at "/a/b.html?p=1". The page that comes shows its
  // path.
  std::string LedToBy(const std::string& href) {
    Show(Post("post", "/a/b.html?p=1", "<a id=l href='" + href + "'>link</a>"));
    WaitForPage([&] { Click("#l"); });
    return Address().text().toStdString();
  }
};

TEST_F(Links, RelativeLinksOfAPostLeadToItsServer) {
  const std::string port = std::to_string(server_.Port());
  for (const auto& [href, path] : std::vector<std::pair<std::string, std::string>>{
           {"story", "/a/story"},
           {"../up", "/up"},
           {"/root?x=1#y", "/root?x=1#y"},
           {"//127.0.0.1:" + port + "/other", "/other"},
           {"?q=2", "/a/b.html?q=2"}}) {
    EXPECT_EQ(LedToBy(href), server_.Url(path)) << href;
  }
}

TEST_F(Links, RelativePicturesOfAPostComeFromItsServer) {
  const std::string gif = QByteArray::fromBase64("R0lGODlhAQABAAAAACwAAAAAAQABAAA=").toStdString();
  for (const char* path : {"/a/near.gif", "/root.gif", "/other.gif"})
    server_.Serve(path, gif, "image/gif");
  const std::string html = "<img src=near.gif><img src=/root.gif><img src='//127.0.0.1:" +
                           std::to_string(server_.Port()) + "/other.gif'>";
  Show(Post("post", "/a/b.html", html));
  const QString widths = "[...document.querySelectorAll('#disc-0 img')].map(i => i.naturalWidth)";
  EXPECT_TRUE(ComesTrue([&] { return Evaluate(widths) == QVariantList({1, 1, 1}); }));
  const int requests = server_.Requests("/a/near.gif");
  frame_.showsRemoteImages = false;
  Show(Post("post", "/a/b.html", html));
  Show(Post("post", "/a/b.html", "the next page"));
  EXPECT_EQ(server_.Requests("/a/near.gif"), requests);
}

}  // namespace
}  // namespace feedloom
