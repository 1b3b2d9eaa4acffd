// What is decided without a widget: where pages lead, what a generated page may load and how it is
// kept, and what the host is told.
#include <gtest/gtest.h>

#include <filesystem>

#include "kit/ShippedSkin.h"
#include "kit/TempFolder.h"
#include "ui/browser/GeneratedPages.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"
#include "ui/browser/StatusTexts.h"

namespace feedloom {
namespace {

using enum NavigationCause;

// The expected text of a row "argument > expected", and its argument.
std::pair<QString, QString> Row(const char* row) {
  const QStringList parts = QString(row).split(" > ");
  return {parts[0], parts[1]};
}

TEST(PageActions, AreKnownByTheButtonsNameBeforeTheQuestionMarkAndNeedTheirPostsElements) {
  for (const char* const row :
       {"feedloom://page/ID_BTN_RSSSCRAP?0 > title-0 scraplink-0 disc-0 pubdate-0",
        "ID_BTN_RSSADD?12b > rsspath-12", "http://h/ID_BTN_RSSADD > rsspath-0",
        "xID_BTN_RSSSCRAPxID_BTN_RSSADD?x > title-0 scraplink-0 disc-0 pubdate-0",
        "ID_BTN_RSSADD?3?4 > rsspath-3", "ID_BTN_RSSADD?99999999999 > rsspath-1000000000",
        "http://h/?ID_BTN_RSSADD > ", "?ID_BTN_RSSADD > ", "ID_BTN_RSS?0 > ",
        "id_btn_rssadd?0 > "}) {
    const auto [target, ids] = Row(row);
    const auto action = ParsePageAction(target);
    EXPECT_EQ(action ? ElementIds(*action).join(' ') : "", ids) << row;
  }
}

// For each address the verdicts (Follow, Act, Outside, Refuse, or ! for a report) on a link, the
// page itself, a server and a command, in a generated page, a web page and a file; and on a frame
// of a generated page, of the player, of a web page and of a file.
TEST(NavigationRules, JudgeEachWayOutOfAPage) {
  const std::pair<const char*, const char*> cases[] = {
      {"http://h/", "FRFF FFFF FFFF RFFF"},
      {"https://h/", "FRFF FFFF FFFF RFFF"},
      {"file:///etc/passwd", "!RRF !RRF FFFF RRRF"},
      {"about:blank", "!RRF FFFF FFFF RRFF"},
      {"blob:http://h/1", "!RRF FFFF FFFF RRFF"},
      {"data:text/html,x", "!RRF FFFF FFFF RRFF"},
      {"mailto:a@h", "ORRF ORRF ORRF RRRR"},
      {"javascript:alert(1)", "!RRF !RRF !RRF RRRR"},
      {"tel:123", "!RRF !RRF !RRF RRRR"},
      {"feedloom://page/3", "!RRF !RRF !RRF RRRR"},
      {"feedloom://page/skin/main.html", "!RRF !RRF !RRF RRRR"},
      {"feedloom://page/ID_BTN_RSSSCRAP?0", "ARR! ARR! ARR! RRRR"},
      {"http://h/ID_BTN_RSSADD?0", "ARR! ARR! ARR! RFFF"},
  };
  const QUrl post("feedloom://page/7"), web("http://h/1"), file("file:///a.html");
  const auto verdict = [](const Navigation& navigation) {
    return "FAOR!"[static_cast<std::size_t>(Judge(navigation))];
  };
  for (const auto& [to, verdicts] : cases) {
    std::string judged;
    for (const QUrl& from : {post, web, file}) {
      for (const auto cause : {Link, Page, Server, Command})
        judged += verdict({from, QUrl(to), cause});
      judged += ' ';
    }
    judged += verdict({post, QUrl(to), Page, false});
    judged += verdict({post, QUrl(to), Page, false, true});
    for (const QUrl& from : {web, file}) judged += verdict({from, QUrl(to), Page, false});
    EXPECT_EQ(judged, verdicts) << to;
  }
}

TEST(NavigationRules, TypedAddressesAreCompletedAsBrowsersDo) {
  // What the browser does not open has a star in front.
  for (const char* const row :
       {"example.com > http://example.com", " https://h/a b  > https://h/a%20b",
        "localhost:8080/x > http://localhost:8080/x", "/etc/hostname > file:///etc/hostname",
        "mailto:a@h > *mailto:a@h", "javascript:alert(1) > *javascript:alert(1)",
        "feedloom://page/1 > *feedloom://page/1", "two words > *"}) {
    const auto [typed, expected] = Row(row);
    const QUrl url = CompleteAddress(typed);
    EXPECT_EQ((IsForBrowser(url) ? "" : "*") + url.toString(QUrl::FullyEncoded), expected) << row;
  }
}

TEST(PageRules, AGeneratedPageHasItsNumberInItsAddressAtAnyHost) {
  const QUrl page = GeneratedPageUrl(7);
  EXPECT_EQ(page.toString(), "feedloom://page/7");
  EXPECT_EQ(AtHost(page, 0), page);
  EXPECT_EQ(AtHost(page, 3).toString(), "feedloom://page3/7");
  EXPECT_EQ(PageNumber(AtHost(page, 3)), 7);
  for (const char* other : {"feedloom://page/seven", "http://page/7"})
    EXPECT_EQ(PageNumber(QUrl(other)), std::nullopt) << other;
}

TEST(PageRules, OnlyFilesBelowTheSkinsDirectoryAreServed) {
  const TempFolder folder;
  std::filesystem::create_directories(folder.File("skin/sub"));
  const QString image = QString::fromStdString(folder.Write("skin/sub/a b.png", "image"));
  folder.Write("secret", "secret");
  folder.Write("skin-old", "a neighbour");
  std::filesystem::create_symlink(folder.File("secret"), folder.File("skin/link"));
  const QString root = QString::fromStdString(folder.Path());
  EXPECT_EQ(SkinFile(SkinFileUrl(image), root + "/skin/"), image);
  for (const char* path : {"/secret", "/skin/../secret", "/skin/link", "/skin-old", "/skin",
                           "/skin/sub", "/skin/none", "/skin/%2e%2e/secret"})
    EXPECT_EQ(SkinFile(QUrl("feedloom://page" + root + path), root + "/skin/"), QString()) << path;
  EXPECT_EQ(SkinFile(SkinFileUrl(image), ""), QString());
}

TEST(PageRules, ThePolicyStandsFirstInTheHeadWithTheStyleBehindIt) {
  const auto page = [](const char* html, PageKind kind, bool showsRemoteImages, const char* style) {
    QByteArray all = WithHead(html, kind, showsRemoteImages, style);
    return all
        .replace(
            "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; base-uri "
            "'none'; form-action 'none'; style-src 'unsafe-inline' feedloom:; ",
            "POLICY ")
        .toStdString();
  };
  const char* const style = "/skin dir/\"/page.css";
  EXPECT_EQ(page("<html><head><title>", PageKind::Post, true, ""),
            "<html><head>POLICY img-src feedloom: http: https: data:\"><title>");
  EXPECT_EQ(page("no head", PageKind::Podcast, false, ""),
            "POLICY img-src feedloom: data:\">no head");
  EXPECT_EQ(page("<head>x", PageKind::Crash, false, style),
            "<head>POLICY img-src feedloom: data:\"><link rel=\"stylesheet\" "
            "href=\"/skin%20dir/%22/page.css\">x");
  EXPECT_EQ(page("<head>x", PageKind::Player, true, style),
            "<head>POLICY img-src feedloom:; media-src http: https:; object-src http: https:; "
            "frame-src http: https:\">x");
}

TEST(GeneratedPages, AreKeptUntilThereAreTooManyOrTheyAreTooLarge) {
  GeneratedPages pages;
  const int first = pages.Add({.html = "first"});
  for (int i = 1; i < 1000; ++i) pages.Add({.html = "page"});
  EXPECT_EQ(pages.Find(first)->html, "first");
  EXPECT_FALSE(pages.Find(first + 1000));
  EXPECT_EQ(pages.Add({.html = "last"}), first + 1000);
  EXPECT_FALSE(pages.Find(first));
  EXPECT_TRUE(pages.Find(first + 1));

  GeneratedPages large;
  const QByteArray half(32 << 20, 'x');
  const int dropped = large.Add({.html = half});
  large.Add({.html = half});
  EXPECT_TRUE(large.Find(dropped));
  const int kept = large.Add({.html = half + half + half});  // one alone is kept in any case
  EXPECT_FALSE(large.Find(dropped));
  EXPECT_TRUE(large.Find(kept));
}

TEST(StatusTexts, SayWhatTheBrowserDoesAndNameItsFiles) {
  const ShippedSkin skin("ENG");
  const auto text = [&](const auto&... of) { return StatusText(skin.Get(), of...); };
  EXPECT_EQ(text(BrowserReport::Hovered, "http://h/%s%d"), "http://h/%s%d");
  EXPECT_EQ(text(BrowserReport::Loading, "42"), "Loading the page: 42%");
  EXPECT_EQ(text(BrowserReport::LinkRefused, "a%d1"), "This address cannot be opened here: a%d1");
  EXPECT_EQ(text(DownloadEvent::Progress, "1%d%s.zip", "3 MB"), "Downloading: 1%d%s.zip (3 MB)");
  EXPECT_EQ(text(DownloadEvent::Done, "1%d%s.zip", ""), "Downloaded: 1%d%s.zip");
  EXPECT_EQ(text(DownloadEvent::Stopped, "a", ""), "The download was stopped: a");
  EXPECT_EQ(text(DownloadEvent::Failed, "a", ""), "The download failed: a");
}

}  // namespace
}  // namespace feedloom
