// What is decided without a widget: where pages lead, how they are kept.
#include <gtest/gtest.h>

#include "kit/ShippedSkin.h"
#include "net/ProxySettings.h"
#include "ui/browser/DisplayedAddress.h"
#include "ui/browser/EngineProxy.h"
#include "ui/browser/FrameLinks.h"
#include "ui/browser/GeneratedPages.h"
#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"
#include "ui/browser/PostAddresses.h"

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

// For each cause the verdict on a link of a post, the player, a web page, when the pane shows the
// module's own pages only; on another generated page; and on a frame of the player.
TEST(NavigationRules, AllButGeneratedPagesOpenOutsideWhenTheUserWantsThat) {
  std::string judged;
  const auto judge = [&](Navigation navigation) {
    navigation.opensOutside = true;
    judged += "FAOR!"[static_cast<std::size_t>(Judge(navigation))];
  };
  const QUrl post("feedloom://page/7"), web("http://h/1");
  for (const QUrl& from : {post, web})
    for (const auto cause : {Link, Page, Server, Command}) judge({from, QUrl("http://h/2"), cause});
  judge({post, QUrl("feedloom://page/8"), Command});
  judge({post, QUrl("file:///a"), Command});
  judge({post, web, Page, false, true});
  EXPECT_EQ(judged, "ORRO!RR!FOF");
}

TEST(NavigationRules, AMailAddressTellsTheMailProgramNoFile) {
  const std::pair<const char*, const char*> cases[] = {
      {"mailto:a@h", "mailto:a@h"},
      {"mailto:a@h?subject=x%26attach=y&Body=1%0A2",
       "mailto:a@h?subject=x%26attach%3Dy&body=1%0A2"},
      {"mailto:a@h?attach=/etc/passwd", "mailto:a@h"},
      {"mailto:a@h?cc=b@h&ATTACHMENT=/etc/passwd&%61ttach=x&amp;attach=y#?attach=z",
       "mailto:a@h?cc=b@h"},
      {"http://h/?attach=1", "http://h/?attach=1"}};
  for (const auto& [given, passed] : cases)
    EXPECT_EQ(ForOtherPrograms(QUrl(given)).toString(QUrl::FullyEncoded), passed) << given;
}

// An address of a post's page, the post's link, and what is meant.
TEST(PostAddresses, AreThoseOfTheServerThatThePostComesFrom) {
  const char* const deep = "https://u@h:81/a/../b/c.html?p=1#x";
  const std::tuple<QString, QString, QString> cases[] = {
      {"d?q#f", deep, "https://h:81/b/d?q#f"},
      {"../../d", deep, "https://h:81/d"},
      {"/d/%2F", deep, "https://h:81/d/%2F"},
      {"?p=2", deep, "https://h:81/b/c.html?p=2"},
      {"", deep, "https://h:81/b/c.html"},
      {"//other:8/d", deep, "https://other:8/d"},
      {"http://other/d", deep, "http://other/d"},
      {"/page:7x/d", deep, "https://h:81/page:7x/d"},
      {"d", "http://h", "http://h/d"},
      {"d", "http://h/ID_BTN_RSSADD/x", "http://h/d"},
      {"d", "http://h/" + QString(9000, 'x') + "/y", "http://h/d"},
      {"d", "file:///etc/x", "feedloom://page/page:7/d"},
      {"d", "", "feedloom://page/page:7/d"}};
  for (const auto& [link, source, meant] : cases) {
    const QUrl page = PageUrlFor(7, source);
    EXPECT_EQ(PageNumber(page), 7);
    EXPECT_FALSE(ParsePageAction(page.toString()));
    EXPECT_EQ(AddressInSource(page.resolved(QUrl(link)), source).toString(), meant)
        << link.toStdString();
  }
  for (const char* other : {"feedloom://page/page:7/d", "feedloom://page/usr/share/a.gif",
                            "feedloom://other/page:7/?feedloom", "http://page/page:7/?feedloom"})
    EXPECT_FALSE(PageNumber(QUrl(other))) << other;
}

TEST(DisplayedAddresses, LieToNobody) {  // the host in brackets
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"en_US", "http://www.apple.com@h.example/x", "http://[h.example]/x"},
      {"en_US", "https://xn--80ak6aa92e.com/",
       "https://[xn--80ak6aa92e.com]/"},  // looks like apple
      {"ru_RU", "https://xn--80ak6aa92e.com/", "https://[xn--80ak6aa92e.com]/"},
      {"ru_RU", "http://xn--e1afmkfd.xn--p1ai/", "http://[пример.рф]/"},
      {"en_US", "http://xn--e1afmkfd.xn--p1ai/", "http://[xn--e1afmkfd.xn--p1ai]/"},
      {"ko_KR", "http://www.xn--bj0bj06e.com:8080/", "http://[www.한글.com]:8080/"},
      {"en_US", "http://xn--bj0bj06e.com", "http://[xn--bj0bj06e.com]"},
      {"de_DE", "http://xn--bcher-kva.example/", "http://[bücher.example]/"},
      {"ko_KR", "http://xn--bcher-kva.example/", "http://[xn--bcher-kva.example]/"},
      {"he_IL", "http://xn--4dbrk0ce.xn--4dbrk0ce/", "http://[xn--4dbrk0ce.xn--4dbrk0ce]/"},
      {"ko_KR", "http://h/%ED%95%9C%EA%B8%80?q=%EA%B0%80%20%2F", "http://[h]/한글?q=가%20%2F"},
      {"en_US", "http://h/%E2%80%AEmoc.elpmaxe", "http://[h]/%E2%80%AEmoc.elpmaxe"},
      {"en_US", "http://h/%E3%85%A4%D7%90%00%0A%C2%A0%FF",
       "http://[h]/%E3%85%A4%D7%90%00%0A%C2%A0%FF"},
      {"en_US", "http://[::1]:80/", "http://[[::1]]:80/"},
      {"en_US", "mailto:a@h", "mailto:a@h"},
      {"en_US", "", ""}};
  for (const auto& [locale, url, shown] : cases) {
    DisplayedAddress address = DisplayAddress(QUrl(url), QLocale(locale));
    if (address.hostLength > 0) {
      address.text.insert(address.hostBegin + address.hostLength, ']');
      address.text.insert(address.hostBegin, '[');
    }
    EXPECT_EQ(address.text.toStdString(), shown) << url << " " << locale;
  }
  const DisplayedAddress address = DisplayAddress(QUrl("http://www.h.example/path"));
  EXPECT_EQ(Shortened(address, 30), address);
  EXPECT_EQ(Shortened(address, 20), (DisplayedAddress{"…ttp://www.h.example", 7, 13}));
}

TEST(FrameLinks, LeadToThePageOfAVideoASoundOrAMap) {
  const std::pair<const char*, const char*> cases[] = {
      {"https://www.youtube-nocookie.com/embed/aB-3_x?rel=0",
       "0https://www.youtube.com/watch?v=aB-3_x"},
      {"http://youtube.com/embed/videoseries?list=x",
       "0http://youtube.com/embed/videoseries?list=x"},
      {"https://player.vimeo.com/video/12?h=3", "0https://vimeo.com/12"},
      {"https://tv.naver.com/embed/34", "0https://tv.naver.com/v/34"},
      {"https://h.example/a.mp4", "0https://h.example/a.mp4"},
      {"https://h.example/a.mp3", "1https://h.example/a.mp3"},
      {"https://www.google.co.kr/maps/embed?pb=1", "2https://www.google.co.kr/maps/embed?pb=1"},
      {"https://youtube.com.evil.example/embed/x", "3https://youtube.com.evil.example/embed/x"},
      {"javascript:alert(1)//a.mp4", ""},
      {"file:///a.mp4", ""}};
  for (const auto& [frame, link] : cases) {
    const auto found = LinkForFrame(QUrl(frame));
    const auto kind = [](FrameKind k) { return QString::number(static_cast<int>(k)); };
    EXPECT_EQ(found ? kind(found->kind) + found->page.toString() : "", link) << frame;
  }
}

TEST(EngineProxy, HoldsForTheSameAddressesAsTransfers) {
  EXPECT_EQ(EngineProxyOptions({false, "h:80", ""}), "");
  EXPECT_EQ(EngineProxyOptions({true, "a b\"c", "x"}), "");
  EXPECT_EQ(
      EngineProxyOptions({true, "http = h:80; https=s:4", "127.*; name.example;<local>;\" x"}),
      "--proxy-server=http=h:80;https=s:4 --proxy-bypass-list=<-loopback>;127.*;"
      "name.example;*.name.example;<local>;localhost;127.0.0.1");
}

TEST(PageRules, ThePolicyStandsFirstInTheHeadWithTheStyleBehindIt) {
  const QByteArray policy =
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; base-uri 'none'; "
      "form-action 'none'; style-src-attr 'unsafe-inline'; style-src-elem feedloom:";
  EXPECT_EQ(WithHead("<html><head><title>", PageKind::Post, true, {}),
            "<html><head>" + policy + "; img-src feedloom: http: https: data:\"><title>");
  EXPECT_EQ(
      WithHead("no head", PageKind::Crash, false, {"/skin dir/\"/page.css", "A'", "</\u00e9"}),
      policy +
          " 'sha256-PchZKLsbA6WxHTZzLHoZ1epCR2MlG70f5Qz5wsvS9yQ='; img-src feedloom: "
          "data:\"><style>:root{--interface:\"A\\27 \";"
          "--separator:\"\\20 \\b7 \\20 \";--source:\"\\3c \\2f \\e9 \"}</style><link "
          "rel=\"stylesheet\" "
          "href=\"/skin%20dir/%22/page.css\">no head");
  EXPECT_EQ(WithHead("", PageKind::Player, true, {"/page.css"}),
            policy +
                "; img-src feedloom:; media-src http: https:; object-src http: https:; frame-src "
                "http: https:\">");
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
