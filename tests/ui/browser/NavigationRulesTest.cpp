#include <gtest/gtest.h>

#include "ui/browser/NavigationRules.h"
#include "ui/browser/PageRules.h"

namespace feedloom {
namespace {

using enum NavigationCause;
using enum NavigationVerdict;

const QUrl kPost = GeneratedPageUrl(7);
const QUrl kMain = SkinFileUrl("/skin/main.html");
const QUrl kWeb("http://example.com/");
const QUrl kFile("file:///etc/passwd");
const QUrl kSave("feedloom://page/ID_BTN_RSSSCRAP?0");

TEST(PageActions, AreKnownByTheButtonsNameBeforeTheQuestionMark) {
  struct Case {
    const char* target;
    std::optional<PageAction> action;
  };
  const Case cases[] = {
      {"feedloom://page/ID_BTN_RSSSCRAP?0", PageAction{PageAction::SavePost, 0}},
      {"ID_BTN_RSSADD?12b", PageAction{PageAction::AddFeed, 12}},
      {"http://example.com/ID_BTN_RSSADD", PageAction{PageAction::AddFeed, 0}},
      {"xID_BTN_RSSSCRAPxID_BTN_RSSADD?x", PageAction{PageAction::SavePost, 0}},
      {"ID_BTN_RSSADD?3?4", PageAction{PageAction::AddFeed, 3}},
      {"ID_BTN_RSSADD?99999999999", PageAction{PageAction::AddFeed, 1'000'000'000}},
      {"http://example.com/?ID_BTN_RSSADD", std::nullopt},
      {"?ID_BTN_RSSADD", std::nullopt},
      {"ID_BTN_RSS?0", std::nullopt},
      {"id_btn_rssadd?0", std::nullopt},
      {"", std::nullopt},
  };
  for (const Case& test : cases)
    EXPECT_EQ(ParsePageAction(test.target), test.action) << test.target;
}

TEST(PageActions, NeedTheElementsOfTheirPost) {
  EXPECT_EQ(ElementIds({PageAction::SavePost, 3}),
            (QStringList{"title-3", "scraplink-3", "disc-3", "pubdate-3"}));
  EXPECT_EQ(ElementIds({PageAction::AddFeed, 12}), QStringList{"rsspath-12"});
}

struct Case {
  Navigation navigation;
  NavigationVerdict verdict;
};

void ExpectAll(std::initializer_list<Case> cases) {
  for (const auto& [navigation, verdict] : cases) {
    EXPECT_EQ(Judge(navigation), verdict) << navigation.from.toString().toStdString() << " to "
                                          << navigation.to.toString().toStdString() << ", cause "
                                          << static_cast<int>(navigation.cause);
  }
}

TEST(NavigationRules, AGeneratedPageIsLeftForWebPagesByAClickAndByNothingElse) {
  ExpectAll({
      {{kPost, kWeb, Link}, Follow},
      {{kPost, QUrl("https://example.com/"), Link}, Follow},
      {{kMain, kWeb, Link}, Follow},
      {{kPost, kSave, Link}, Act},
      {{kPost, QUrl("mailto:a@example.com"), Link}, OpenOutside},
      {{kPost, kFile, Link}, Report},
      {{kPost, QUrl("javascript:alert(1)"), Link}, Report},
      {{kPost, QUrl("data:text/html,x"), Link}, Report},
      {{kPost, QUrl("tel:123"), Link}, Report},
      {{kPost, GeneratedPageUrl(3), Link}, Report},
      {{kPost, kWeb, Page}, Refuse},
      {{kPost, kSave, Page}, Refuse},
      {{kPost, QUrl("mailto:a@example.com"), Page}, Refuse},
  });
}

TEST(NavigationRules, NoWebPageLeadsToTheModulesPagesOrTheMachinesFiles) {
  ExpectAll({
      {{kWeb, kWeb, Page}, Follow},
      {{kWeb, QUrl("about:blank"), Page}, Follow},
      {{kWeb, kPost, Link}, Report},
      {{kWeb, kMain, Page}, Refuse},
      {{kWeb, kFile, Link}, Report},
      {{kFile, QUrl("file:///tmp/other.html"), Link}, Follow},
      {{kWeb, QUrl("http://example.com/ID_BTN_RSSADD?0"), Link}, Act},
      {{kWeb, QUrl("http://example.com/ID_BTN_RSSADD?0"), Page}, Refuse},
      {{kWeb, QUrl("tel:123"), Page}, Refuse},
  });
}

TEST(NavigationRules, FramesBelongToWebPagesAndToThePlayersMediaFile) {
  ExpectAll({
      {{kWeb, kWeb, Page, false}, Follow},
      {{kWeb, kPost, Page, false}, Refuse},
      {{kWeb, QUrl("mailto:a@example.com"), Page, false}, Refuse},
      {{kPost, kWeb, Page, false}, Refuse},
      {{kPost, kWeb, Page, false, true}, Follow},
      {{kPost, kFile, Page, false, true}, Refuse},
      {{kPost, kPost, Page, false, true}, Refuse},
  });
}

TEST(NavigationRules, AServerSendsToOtherWebPagesOnly) {
  ExpectAll({{{kPost, kWeb, Server}, Follow},
             {{kPost, QUrl("http://example.com/ID_BTN_RSSADD?0"), Server}, Refuse},
             {{kPost, kFile, Server}, Refuse},
             {{kWeb, kPost, Server}, Refuse},
             {{kWeb, QUrl("mailto:a@example.com"), Server}, Refuse}});
}

TEST(NavigationRules, TheUsersOwnCommandsLeadEverywhereButToButtons) {
  ExpectAll({{{kPost, kPost, Command}, Follow},
             {{kWeb, kPost, Command}, Follow},
             {{kPost, kFile, Command}, Follow},
             {{kPost, kSave, Command}, Report}});
}

TEST(NavigationRules, TypedAddressesAreCompletedAsBrowsersDo) {
  struct Typed {
    const char* text;
    const char* url;
    bool isForBrowser;
  };
  const Typed cases[] = {
      {"example.com", "http://example.com", true},
      {" https://example.com/a b ", "https://example.com/a%20b", true},
      {"localhost:8080/x", "http://localhost:8080/x", true},
      {"/etc/hostname", "file:///etc/hostname", true},
      {"mailto:a@example.com", "mailto:a@example.com", false},
      {"javascript:alert(1)", "javascript:alert(1)", false},
      {"chrome://crash", "chrome://crash", false},
      {"feedloom://page/1", "feedloom://page/1", false},
      {"two words", "", false},
  };
  for (const Typed& test : cases) {
    const QUrl url = CompleteAddress(test.text);
    EXPECT_EQ(url.toString(QUrl::FullyEncoded), test.url) << test.text;
    EXPECT_EQ(IsForBrowser(url), test.isForBrowser) << test.text;
  }
}

}  // namespace
}  // namespace feedloom
