// Texts and their encodings, addresses of the web, and the links of HTML pages.
#include <array>
#include <ctime>
#include <random>

#include "kit/ManualClock.h"
#include "kit/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/HtmlLinks.h"
#include "platform/Rows.h"
#include "platform/Text.h"
#include "platform/UrlParts.h"

namespace feedloom {
namespace {

const CodePage kKorean = CodePage::Korean();
const CodePage kUtf8 = CodePage::Utf8();

TEST(TextTest, FollowsTheRulesOfAscii) {
  ExpectRows([](auto& text) { return std::string(Trim(text)); },
             {" \t\r\n\v\fa b\n  -> a b", " \n -> ", "\xC2\xA0x -> \xC2\xA0x"});
  ExpectRows([](auto& text) { return std::to_string(ParseInt(text)); },
             {"42 -> 42", "90/ -> 90", " \t\n-7 posts -> -7", "+08.5 -> 8", "1: -> 1", " -> 0",
              "   -> 0", "x1 -> 0", "--5 -> 0", "+-5 -> 0", "- 5 -> 0", "- -> 0", "0x10 -> 0",
              "999999999 -> 999999999", "1000000001 -> 1000000000",
              "-99999999999999999999999999 -> -1000000000", "0000000000000000000000012 -> 12"});
  EXPECT_EQ(ReplaceAll("it's 'so'", "'", "''"), "it''s ''so''");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  ExpectRows(ToUpperAscii, {"`az{-09 é -> `AZ{-09 é"});
  EXPECT_TRUE(EqualsIgnoringAsciiCase("Text/XML", "tEXT/xml"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("é", "É"));
  EXPECT_FALSE(EqualsIgnoringAsciiCase("text", "text/"));
  for (const char* text : {"a\n", "\x1F", "\x7Fz"}) EXPECT_TRUE(HasControls(text));
  EXPECT_FALSE(HasControls(" ~\x80\xFF"));
}

TEST(TextTest, ATimeIsWrittenInTheMachinesZone) {
  EXPECT_EQ(FormatLocalTime(NoonOf(2003, 6, 10), "%Y-%m-%d %H:%M"), "2003-06-10 12:00");
}

TEST(CodePageTest, ConvertsWhatItHoldsAndMarksTheRest) {
  ExpectRows([](auto& name) { return std::string(CodePage::FromName(name).DeclaredName()); },
             {"utf-8 -> UTF-8", "UTF-8 -> UTF-8", " -> EUC-KR", "CP949 -> EUC-KR"});
  for (const CodePage& page : {kKorean, kUtf8}) {
    ExpectRows([&](auto& text) { return page.FromUtf8(text); },
               {"a\xFF z -> a? z", "cut \xEA\xB0 -> cut ?", "\xEA\xB0<b> -> ?<b>", "\xC3( -> ?(",
                "\x80\x80z -> ??z", "\xED\xA0\x80z -> ?z", "\xF0\x9F\x98z -> ?z"});
  }
  ExpectRows([](auto& text) { return kKorean.FromUtf8(text); },
             {"é😀ñx가\u0301나 -> ???x\xB0\xA1?\xB3\xAA", "똠방각 -> \x8C\x63\xB9\xE6\xB0\xA2"});
  ExpectRows([](auto& text) { return kKorean.ToUtf8(text); },
             {"\x8C\x63\xB9\xE6\xB0\xA2 -> 똠방각", "a\xB0 -> a\uFFFD", "\xB0<b> -> \uFFFD<b>",
              "\xFF\x80z -> \uFFFD\uFFFDz", "\x81\x40\x81\x41z -> \uFFFD@갂z",
              "\xC9\xA1\xFE\xFEz -> \uFFFD\uFFFDz"});
  ExpectRows([](auto& text) { return kUtf8.ToUtf8(text); }, {"가\xEA\xB0<b>é -> 가\uFFFD<b>é"});
  EXPECT_EQ(kKorean.CharLength("\x8C\x63x"), 2u);
  ExpectRows([](auto& text) { return std::to_string(kUtf8.CharLength(text)); },
             {"ab -> 1", "é -> 2", "가나 -> 3", "😀\x80 -> 4", "\xEA\xB0 -> 2", "\x80\x80 -> 1"});
}

// Longer than any buffer of the conversion, with a character across every place of one.
TEST(CodePageTest, LongTextsKeepTheirPlaceAroundWhatIsMissing) {
  std::string text("\\~\0\t\x7F", 5), expected = text;
  for (std::size_t i = 0; i < 3000; ++i) {
    text += std::string(i % 37, 'x') + "가é나😀";
    expected += std::string(i % 37, 'x') + "가?나?";
  }
  EXPECT_EQ(kKorean.ToUtf8(kKorean.FromUtf8(text)), expected);
}

TEST(UrlPartsTest, TakesAddressesApartAndResolvesReferences) {
  ExpectRows([](auto& url) { return UrlScheme(url) + " " + UrlHost(url) + " " + UrlPath(url); },
             {"https://u@a.kr:81/b%20c?d#e -> https a.kr /b c", "a.kr:81/b -> http a.kr /b",
              "no address ->   ", "http:// ->   "});
  ExpectRows([](auto& reference) { return ResolveUrl("http://a/b/c/d;p?q", reference); },
             {"g -> http://a/b/c/g", "g/../h -> http://a/b/c/h", "../../../g -> http://a/g",
              "?y -> http://a/b/c/d;p?y", "g?y/../z -> http://a/b/c/g?y/../z",
              "//h/g -> http://h/g", "https://h:8443/g?x[]=1 -> https://h:8443/g?x[]=1",
              "http://[::1]:80/g -> http://[::1]:80/g", "file:///etc/passwd -> file:///etc/passwd",
              "g h/한?한 -> http://a/b/c/g%20h/%ed%95%9c?%ed%95%9c", "javascript:alert(1) -> ",
              "file:a -> ", "http://a b/ -> ", " -> ", "#part -> "});
  EXPECT_EQ(ResolveUrl("", "http://h/g") + ResolveUrl("", "g"), "http://h/g");
}

class HtmlLinksTest : public testing::Test {
 protected:
  // The page's alternates, each with a blank behind it. Reading them is quick and says nothing.
  std::string Links(std::string_view page, const std::string& address = "http://a.kr/b/page") {
    constexpr std::array<std::string_view, 2> kTypes = {"application/rss+xml",
                                                        "application/atom+xml"};
    const std::string path = folder_.Write("page", page);
    testing::internal::CaptureStderr();
    const std::clock_t start = std::clock();  // of processor time
    std::string links;
    for (const std::string& link : AlternateLinks(path, address, kTypes)) links += link + " ";
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 5);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    return links;
  }

  static std::string Link(const std::string& href) {
    return "<link rel=alternate type=application/rss+xml href='" + href + "'>";
  }

  const TempFolder folder_;
};

TEST_F(HtmlLinksTest, TakesTheAlternatesOfTheWantedTypesInOrder) {
  EXPECT_EQ(Links("<!DOCTYPE html><html><head><title>t</title><link rel='alternate' href='no1'>"
                  "<link rel='alternate' type='text/html' href='no2'>"
                  "<link rel='alternates' type='application/rss+xml' href='no3'>"
                  "<a rel='alternate' type='application/rss+xml' href='no4'><!--" +
                  Link("no5") + "--><link rel='alternate' type='application/rss+xml'>" +
                  "<link HREF=' 1 ' REL='Home ALTERNATE' TYPE='Application/ATOM+xml ; charset=x'/>"
                  "</head><body><p><link rel=alternate type=application/rss+xml href=?a=2&amp;b>"),
            "http://a.kr/b/1 http://a.kr/b/page?a=2&b ");
}

TEST_F(HtmlLinksTest, ResolvesAgainstTheBaseOrElseThePageInEveryEncoding) {
  ExpectRows(
      [this](auto& base) { return Links(Link("f") + base); },
      {"<base href='http://c.kr/d/'> -> http://c.kr/d/f ", "<base href='/d/'> -> http://a.kr/d/f ",
       "<base target=_blank><base href='x/y'><base href='/no/'> -> http://a.kr/b/x/f ",
       "<base href='javascript:alert(1)'> -> http://a.kr/b/f ",
       "<base href=''><base href> -> http://a.kr/b/f "});
  EXPECT_EQ(Links(Link("f"), "file:///home/me/page.html"), "file:///home/me/f ");
  const std::string page = Link("한");
  std::string wide = "\xFF\xFE";
  for (const char c : Link("%ed%95%9c")) wide += {c, '\0'};
  for (const std::string& bytes : {page, "\xEF\xBB\xBF" + page, wide, page + "<p>\xED\x95",
                                   "<meta charset='euc-kr'>" + kKorean.FromUtf8(page)}) {
    EXPECT_EQ(Links(bytes), "http://a.kr/b/%ed%95%9c ");
  }
}

TEST_F(HtmlLinksTest, HostilePagesCostNothing) {
  const std::string link = Link("f");
  const std::string found = "http://a.kr/b/f ";
  std::string names = "<p";
  for (int i = 0; i < 120'000; ++i) names += " a" + std::to_string(100'000 + i);
  std::mt19937 random(1);
  std::string noise(1'000'000, '\0');
  for (char& c : noise) c = static_cast<char>(random());
  for (const std::string& page :
       {"<style>" + std::string(900'000, 'x') + "</style>" + link,
        link + Repeated("<div>", 100'000) + link,
        link + Repeated("<i>", 170'000) + Repeated("</b>", 130'000),
        Repeated("<div>", 200) + Repeated("</b>", 250'000) + link,
        link + Link(std::string(64 << 10, 'x')) + Link("no"), link + names + ">" + Link("no"),
        Repeated(names.substr(0, 15'000) + ">", 60) + link, link + "<!--" + Repeated("- ", 500'000),
        link + Repeated("&amp", 250'000), "<meta charset='nowhere'>\xB0\xA1" + link}) {
    EXPECT_EQ(Links(page), found) << page.substr(0, 100);
  }
  for (const std::string& page : {"<p>" + std::string(5 << 20, 'x') + link, noise, std::string()}) {
    EXPECT_EQ(Links(page), "") << page.substr(0, 100);
  }
  EXPECT_EQ(Links(Repeated(link, 10'000)), Repeated(found, 100));
  EXPECT_TRUE(AlternateLinks(folder_.File("missing"), "http://a/", {}).empty());
}

}  // namespace
}  // namespace feedloom
