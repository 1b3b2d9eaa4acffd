#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <random>

#include "kit/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/HtmlLinks.h"
#include "platform/UrlParts.h"

namespace feedloom {
namespace {

class HtmlLinksTest : public testing::Test {
 protected:
  // The addresses of a page's alternates, each with a blank behind it.
  std::string Links(std::string_view page, const std::string& address = "http://a.kr/b/page") {
    constexpr std::array<std::string_view, 2> kTypes = {"application/rss+xml",
                                                        "application/atom+xml"};
    std::string links;
    for (const std::string& link : AlternateLinks(folder_.Write("page", page), address, kTypes)) {
      links += link + " ";
    }
    return links;
  }

  // The same of a page that must not take long, nor say anything.
  std::string LinksOfHostile(std::string_view page) {
    testing::internal::CaptureStderr();
    const auto start = std::chrono::steady_clock::now();
    std::string links = Links(page);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    return links;
  }

  const TempFolder folder_;
};

std::string Link(const std::string& href) {
  return "<link rel=alternate type=application/rss+xml href='" + href + "'>";
}

std::string Repeated(std::string_view piece, std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += piece;
  return text;
}

TEST(ResolveUrlTest, ResolvesReferencesAsDocumentsWriteThem) {
  struct Case {
    const char* reference;
    const char* address;
  };
  constexpr Case kCases[] = {
      {"g", "http://a/b/c/g"},
      {"g/../h", "http://a/b/c/h"},
      {"../../../g", "http://a/g"},
      {"?y", "http://a/b/c/d;p?y"},
      {"g?y/../z", "http://a/b/c/g?y/../z"},
      {"//h/g", "http://h/g"},
      {"https://h:8443/g?x[]=1", "https://h:8443/g?x[]=1"},
      {"http://[::1]:80/g", "http://[::1]:80/g"},
      {"g h/한?한", "http://a/b/c/g%20h/%ed%95%9c?%ed%95%9c"},
      {"file:///etc/passwd", "file:///etc/passwd"},
      {"file:a", ""},
      {"javascript:alert(1)", ""},
      {"http://a b/", ""},
      {"", ""},
      {"#part", ""},
  };
  for (const Case& each : kCases) {
    EXPECT_EQ(ResolveUrl("http://a/b/c/d;p?q", each.reference), each.address) << each.reference;
  }
  EXPECT_EQ(ResolveUrl("", "http://h/g"), "http://h/g");
  EXPECT_EQ(ResolveUrl("", "g"), "");
}

TEST_F(HtmlLinksTest, TakesTheAlternatesOfTheWantedTypesInOrder) {
  EXPECT_EQ(
      Links("<!DOCTYPE html><html><head><title>t</title><meta charset=utf-8>"
            "<link rel='stylesheet' type='text/css' href='no1.css'>"
            "<link rel='alternate' type='text/html' href='no2'>"
            "<link rel='alternates' type='application/rss+xml' href='no3'>"
            "<link rel='alternate' href='no4'><link rel='alternate' type='application/rss+xml'>"
            "<!-- <link rel='alternate' type='application/rss+xml' href='no5'> -->"
            "<link rel='alternate' type='application/rss+xml' href='1'>"
            "<LINK HREF=' 2 ' REL='Home ALTERNATE' TYPE='Application/ATOM+xml ; charset=x'/>"
            "</head><body><p><link rel=alternate type=application/rss+xml href=?a=1&amp;b=3>"),
      "http://a.kr/b/1 http://a.kr/b/2 http://a.kr/b/page?a=1&b=3 ");
}

TEST_F(HtmlLinksTest, ResolvesAgainstTheBaseOrElseThePage) {
  struct Case {
    const char* base;
    const char* link;
  };
  constexpr Case kCases[] = {
      {"<base href='http://c.kr/d/'>", "http://c.kr/d/f "},
      {"<base href='/d/'>", "http://a.kr/d/f "},
      {"<base target=_blank><base href='x/y'><base href='/no/'>", "http://a.kr/b/x/f "},
      {"<base href='javascript:alert(1)'>", "http://a.kr/b/f "},
      {"<base href=''>", "http://a.kr/b/f "},
  };
  for (const Case& each : kCases) {
    EXPECT_EQ(Links(Link("f") + each.base), each.link) << each.base;
  }
  EXPECT_EQ(Links(Link("f"), "file:///home/me/page.html"), "file:///home/me/f ");
}

TEST_F(HtmlLinksTest, ReadsAddressesInEveryEncoding) {
  const std::string page = Link("한");
  constexpr const char* kExpected = "http://a.kr/b/%ed%95%9c ";
  EXPECT_EQ(Links(page), kExpected) << "undeclared UTF-8";
  EXPECT_EQ(Links("\xEF\xBB\xBF" + page), kExpected);
  EXPECT_EQ(Links("<meta charset='euc-kr'>" + CodePage::Korean().FromUtf8(page)), kExpected);
  std::string wide = "\xFF\xFE";
  for (const char c : Link("f")) wide += {c, '\0'};
  EXPECT_EQ(Links(wide), "http://a.kr/b/f ");
}

TEST_F(HtmlLinksTest, LooksAtTheFirstMebibyteOnly) {
  const std::string large = "<style>" + std::string(900'000, 'x') + "</style>" + Link("f");
  EXPECT_EQ(Links(large), "http://a.kr/b/f ");
  EXPECT_EQ(Links("<p>" + std::string(5 << 20, 'x') + Link("f")), "");
}

TEST_F(HtmlLinksTest, HostilePagesCostNothing) {
  const std::string link = Link("f");
  const std::string found = "http://a.kr/b/f ";
  std::string names = "<p";
  for (int i = 0; i < 120'000; ++i) names += " a" + std::to_string(100'000 + i);
  struct Case {
    const char* what;
    std::string page;
    std::string links;
  };
  const Case cases[] = {
      {"deep", link + Repeated("<div>", 100'000), found},
      {"deep, and ended by others", link + Repeated("<i>", 170'000) + Repeated("</b>", 130'000),
       found},
      {"deep and before it", Repeated("<div>", 100'000) + link, ""},
      {"ended by others", Repeated("<div>", 200) + Repeated("</b>", 250'000) + link, found},
      {"an address of 64 KiB", link + Link(std::string(64 << 10, 'x')) + Link("no"), found},
      {"a great many attributes", link + names + ">" + Link("no"), found},
      {"many tags with many attributes", Repeated(names.substr(0, 15'000) + ">", 60) + link, found},
      {"a comment without an end", link + "<!--" + Repeated("- ", 500'000), found},
      {"entities", link + Repeated("&amp", 250'000), found},
      {"an unknown encoding", "<meta charset='nowhere'>\xB0\xA1" + link, found},
      {"many links", Repeated(link, 10'000), Repeated(found, 100)},
      {"nothing", "", ""},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.what);
    EXPECT_EQ(LinksOfHostile(each.page), each.links);
  }
}

TEST_F(HtmlLinksTest, NoiseHoldsNoLinks) {
  std::mt19937 random(1);
  for (int round = 0; round < 20; ++round) {
    std::string noise(50'000, '\0');
    for (char& c : noise) c = static_cast<char>(random());
    EXPECT_EQ(LinksOfHostile(noise), "");
  }
  EXPECT_EQ(AlternateLinks(folder_.File("missing"), "http://a/", {}), std::vector<std::string>());
}

}  // namespace
}  // namespace feedloom
