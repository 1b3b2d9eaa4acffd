// What is decided without a widget: where pages lead, how they are kept.
#include <gtest/gtest.h>

#include "ui/browser/GeneratedPages.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"

namespace feedloom {

using enum NavigationCause;

TEST(PageActions, AreKnownByTheButtonsNameBeforeTheQuestionMarkAndNeedTheirPostsElements) {
  for (const char* const row :
       {"feedloom://page/ID_BTN_RSSSCRAP?0 > title-0 scraplink-0 disc-0 pubdate-0",
        "ID_BTN_RSSADD?12b > rsspath-12", "http://h/xID_BTN_RSSADDx > rsspath-0",
        "http://h/?ID_BTN_RSSADD > ", "?ID_BTN_RSSADD > ", "ID_BTN_RSS?0 > "}) {
    const QStringList parts = QString(row).split(" > ");
    const auto action = ParsePageAction(parts[0]);
    EXPECT_EQ(action ? ElementIds(*action).join(' ') : "", parts[1]) << row;
  }
}

// For each address the verdicts (Follow, Act, Outside, Refuse, or ! for a report) on a link, the
// page itself, a server and a command, in a generated page, a web page and a file; and on a frame
// of a generated page, of the player, of a web page and of a file.
TEST(NavigationRules, JudgeEachWayOutOfAPage) {
  const std::pair<const char*, const char*> cases[] = {
      {"https://h/", "FRFF FFFF FFFF RFFF"},
      {"file:///etc/passwd", "!RRF !RRF FFFF RRRF"},
      {"about:blank", "!RRF FFFF FFFF RRFF"},
      {"blob:http://h/1", "!RRF FFFF FFFF RRFF"},
      {"data:text/html,x", "!RRF FFFF FFFF RRFF"},
      {"mailto:a@h", "ORRF ORRF ORRF RRRR"},
      {"javascript:alert(1)", "!RRF !RRF !RRF RRRR"},
      {"feedloom://page/3", "!RRF !RRF !RRF RRRR"},
      {"feedloom://page/ID_BTN_RSSSCRAP?0", "ARR! ARR! ARR! RRRR"},
      {"http://h/ID_BTN_RSSADD?0", "ARR! ARR! ARR! RFFF"}};
  const QUrl post("feedloom://page/7"), web("http://h/1"), file("file:///a.html");
  for (const auto& [to, verdicts] : cases) {
    std::string judged;
    const auto judge = [&](const Navigation& navigation) {
      judged += "FAOR!"[static_cast<std::size_t>(Judge(navigation))];
    };
    for (const QUrl& from : {post, web, file}) {
      for (const auto cause : {Link, Page, Server, Command}) judge({from, QUrl(to), cause});
      judged += ' ';
    }
    judge({post, QUrl(to), Page, false});
    for (const QUrl& from : {post, web, file}) judge({from, QUrl(to), Page, false, from == post});
    EXPECT_EQ(judged, verdicts) << to;
  }
}

TEST(PageRules, ThePolicyStandsFirstInTheHeadWithTheStyleBehindIt) {
  const QByteArray policy =
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; base-uri 'none'; "
      "form-action 'none'; style-src 'unsafe-inline' feedloom:; img-src feedloom:";
  EXPECT_EQ(WithHead("<html><head><title>", PageKind::Post, true, ""),
            "<html><head>" + policy + " http: https: data:\"><title>");
  EXPECT_EQ(WithHead("no head", PageKind::Crash, false, "/skin dir/\"/page.css"),
            policy + " data:\"><link rel=\"stylesheet\" href=\"/skin%20dir/%22/page.css\">no head");
  EXPECT_EQ(
      WithHead("", PageKind::Player, true, "/page.css"),
      policy + "; media-src http: https:; object-src http: https:; frame-src http: https:\">");
}

TEST(GeneratedPages, AreKeptUntilThereAreTooManyOrTheyAreTooLarge) {
  GeneratedPages pages, large;
  for (int i = 0; i < 1001; ++i) pages.Add({.html = "page"});
  EXPECT_TRUE(!pages.Find(1) && pages.Find(2) && pages.Find(1001));
  for (int i = 0; i < 3; ++i) large.Add({.html = QByteArray(32 << 20, 'x')});
  EXPECT_TRUE(!large.Find(1) && large.Find(2) && large.Find(3));
  large.Add({.html = QByteArray(65 << 20, 'x')});  // one alone is kept in any case
  EXPECT_TRUE(!large.Find(3) && large.Find(4));
}

}  // namespace feedloom
