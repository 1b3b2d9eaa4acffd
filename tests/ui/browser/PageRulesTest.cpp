#include <gtest/gtest.h>

#include <filesystem>

#include "kit/TempFolder.h"
#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

const QUrl kPost = GeneratedPageUrl(7);
const QUrl kWeb("http://example.com/");

TEST(PageRules, AGeneratedPageHasItsNumberInItsAddress) {
  EXPECT_EQ(kPost.toString(), "feedloom://page/7");
  EXPECT_EQ(PageNumber(kPost), 7);
  EXPECT_EQ(PageNumber(QUrl("feedloom://page/seven")), std::nullopt);
  EXPECT_EQ(PageNumber(QUrl("http://page/7")), std::nullopt);
}

TEST(PageRules, OnlyFilesBelowTheSkinsDirectoryAreServed) {
  const TempFolder folder;
  std::filesystem::create_directories(folder.File("skin/sub"));
  const QString image = QString::fromStdString(folder.Write("skin/sub/a b.png", "image"));
  const QString secret = QString::fromStdString(folder.Write("secret", "secret"));
  folder.Write("skin-old", "a neighbour");
  std::filesystem::create_symlink(folder.File("secret"), folder.File("skin/link"));
  const QString root = QString::fromStdString(folder.Path());
  const QString skin = root + "/skin/";

  EXPECT_EQ(SkinFile(SkinFileUrl(image), skin), image);
  for (const QString& path : {secret, root + "/skin/../secret", root + "/skin/link",
                              root + "/skin-old", root + "/skin", root + "/skin/sub/none"}) {
    EXPECT_EQ(SkinFile(SkinFileUrl(path), skin), QString()) << path.toStdString();
  }
  EXPECT_EQ(SkinFile(QUrl("feedloom://page" + root + "/skin/%2e%2e/secret"), skin), QString());
  EXPECT_EQ(SkinFile(SkinFileUrl(secret), ""), QString());
}

TEST(PageRules, ThePolicyStandsFirstInTheHead) {
  const QByteArray page =
      WithContentPolicy("<html><head><title>t</title></head>", PageKind::Preview);
  EXPECT_TRUE(page.startsWith(
      "<html><head><meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "))
      << page.toStdString();
  EXPECT_TRUE(page.endsWith("\"><title>t</title></head>"));
}

struct Navigation {
  QUrl from;
  QUrl to;
  NavigationCause cause;
  bool isMainFrame;
  bool allowed;
};

TEST(PageRules, AGeneratedPageIsLeftForWebPagesAndByNothingElse) {
  using enum NavigationCause;
  const Navigation cases[] = {
      {kPost, kWeb, Link, true, true},
      {kPost, QUrl("https://example.com/"), Link, true, true},
      {kPost, QUrl("file:///etc/passwd"), Link, true, false},
      {kPost, QUrl("javascript:alert(1)"), Link, true, false},
      {kPost, QUrl("feedloom://page/ID_BTN_RSSADD?0"), Link, true, false},
      {kPost, kWeb, Page, true, false},
      {kPost, kWeb, Page, false, false},
      {kPost, kPost, Command, true, true},
      {kWeb, kPost, Command, true, true},
      {kWeb, kPost, Link, true, false},
      {kWeb, kPost, Page, false, false},
      {kWeb, kWeb, Page, true, true},
      {kWeb, kWeb, Page, false, true},
  };
  for (const Navigation& test : cases) {
    EXPECT_EQ(MayNavigate(test.from, test.to, test.cause, test.isMainFrame), test.allowed)
        << test.from.toString().toStdString() << " to " << test.to.toString().toStdString();
  }
}

}  // namespace
}  // namespace feedloom
