#include <gtest/gtest.h>

#include <filesystem>

#include "kit/TempFolder.h"
#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

const QUrl kPost = GeneratedPageUrl(7);

TEST(PageRules, AGeneratedPageHasItsNumberInItsAddress) {
  EXPECT_EQ(kPost.toString(), "feedloom://page/7");
  EXPECT_EQ(PageNumber(kPost), 7);
  EXPECT_EQ(PageNumber(QUrl("feedloom://page/seven")), std::nullopt);
  EXPECT_EQ(PageNumber(QUrl("http://page/7")), std::nullopt);
}

TEST(PageRules, TheSamePagesHaveAddressesAtSeveralHosts) {
  EXPECT_EQ(AtHost(kPost, 0), kPost);
  EXPECT_EQ(AtHost(kPost, 3).toString(), "feedloom://page3/7");
  EXPECT_EQ(PageNumber(AtHost(kPost, 3)), 7);
  EXPECT_TRUE(IsGenerated(AtHost(kPost, 3)));
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
  const QByteArray page = WithHead("<html><head><title>t</title></head>", PageKind::Post, true, {});
  EXPECT_TRUE(page.startsWith(
      "<html><head><meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; "))
      << page.toStdString();
  EXPECT_TRUE(WithHead("no head", PageKind::Post, true, {}).startsWith("<meta "));
  EXPECT_TRUE(page.endsWith("\"><title>t</title></head>"));
}

TEST(PageRules, TheSkinsStyleFollowsThePolicyButNotInThePlayer) {
  const QString style = "/skin dir/\"/page.css";
  EXPECT_TRUE(
      WithHead("<head></head>", PageKind::Post, true, style)
          .endsWith("\"><link rel=\"stylesheet\" href=\"/skin%20dir/%22/page.css\"></head>"));
  EXPECT_FALSE(WithHead("<head></head>", PageKind::Player, true, style).contains("<link"));
}

TEST(PageRules, PicturesInTheWebAreShownWhereTheUserWantsThem) {
  const auto showsThem = [](PageKind kind, bool wanted) {
    return WithHead("<head>", kind, wanted, {}).contains("img-src feedloom: http: https:");
  };
  EXPECT_TRUE(showsThem(PageKind::Post, true));
  EXPECT_FALSE(showsThem(PageKind::Post, false));
  EXPECT_FALSE(showsThem(PageKind::Podcast, false));
}

}  // namespace
}  // namespace feedloom
