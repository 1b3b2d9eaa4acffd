// HTML and XML documents.
#include "kit/Rows.h"
#include "kit/TempFolder.h"
#include "text/CodePage.h"
#include "xml/HtmlLinks.h"
#include "xml/XmlDom.h"

namespace feedloom {

using Status = XmlDocument::LoadStatus;

struct DocumentTest : testing::Test {
  DocumentTest() { testing::internal::CaptureStderr(); }
  ~DocumentTest() override { EXPECT_EQ(testing::internal::GetCapturedStderr(), ""); }

  // The addresses of an HTML page's alternates, each with a blank behind it.
  std::string Links(std::string_view page) {
    constexpr std::string_view kTypes[] = {"application/rss+xml", "application/atom+xml"};
    std::string links;
    const std::string path = folder_.Write("page", page);
    for (auto& link : AlternateLinks(path, "http://a.kr/b/page", kTypes)) links += link + " ";
    return links;
  }

  static std::string Link(const std::string& href) {
    return "<link rel=alternate type=application/rss+xml href='" + href + "'>";
  }

  Status Load(std::string_view bytes, const XmlLimits& limits = {}) {
    const Status status = document_.Load(folder_.Write("document.xml", bytes), {}, limits);
    EXPECT_EQ(status == Status::Loaded, static_cast<bool>(document_.Root()));
    return status;
  }

  XmlElement Root(std::string_view bytes) {
    EXPECT_EQ(Load(bytes), Status::Loaded) << bytes.substr(0, 200);
    return document_.Root();
  }

  const TempFolder folder_;
  XmlDocument document_;
};

TEST_F(DocumentTest, AnHtmlPageGivesTheAlternatesOfTheWantedTypesInOrder) {
  EXPECT_EQ(
      Links("<head><link rel='alternate' href='1'><link rel='alternate' type='text/html' href=2>"
            "<link rel='alternates' type='application/rss+xml' href='3'>"
            "<a rel='alternate' type='application/rss+xml' href='4'><!--" +
            Link("5") + "--><link rel='alternate' type='application/rss+xml'>" +
            "<link HREF=' 6 ' REL='Home ALTERNATE' TYPE='Application/ATOM+xml ; charset=x'/>"
            "</head><body><p><link rel=alternate type=application/rss+xml href=?a=7&amp;b>"),
      "http://a.kr/b/6 http://a.kr/b/page?a=7&b ");
}

TEST_F(DocumentTest, HtmlLinksAreResolvedAgainstTheBaseOrElseThePageInEveryEncoding) {
  ExpectRows(
      [this](auto& base) { return Links(Link("f") + base); },
      {"<base href='http://c.kr/d/'> -> http://c.kr/d/f ", "<base href='/d/'> -> http://a.kr/d/f ",
       "<base target=_blank><base href='x/y'><base href='/no/'> -> http://a.kr/b/x/f ",
       "<base href='javascript:alert(1)'> -> http://a.kr/b/f ",
       "<base href=''><base href> -> http://a.kr/b/f "});
  const std::string page = Link("똠");
  for (const std::string& bytes : {page, "\xEF\xBB\xBF" + page, page + "<p>\xEB\x98",
                                   "<meta charset='euc-kr'>" + CodePage::Korean().FromUtf8(page)})
    EXPECT_EQ(Links(bytes), "http://a.kr/b/%eb%98%a0 ");
}

TEST_F(DocumentTest, HostileHtmlCostsNothing) {
  const std::string link = Link("f"), found = "http://a.kr/b/f ";
  std::string names = "<p";
  for (int i = 0; i < 120'000; ++i) names += " a" + std::to_string(100'000 + i);
  for (const std::string& page :
       {"<style>" + std::string(900'000, 'x') + "</style>" + link, link + names + ">" + Link("no"),
        link + Repeated("<div>", 100'000) + link, link + "<!--" + Repeated("- ", 500'000),
        Repeated(names.substr(0, 15'000) + ">", 60) + link,
        link + Link(std::string(64 << 10, 'x')) + Link("no")})
    EXPECT_EQ(Links(page), found) << page.substr(0, 100);
  EXPECT_EQ(Links("<p>" + std::string(5 << 20, 'x') + link), "");
  EXPECT_EQ(Links(Repeated(link, 10'000)), Repeated(found, 100));
}

TEST_F(DocumentTest, XmlNamesAreWhatIsWrittenDeclaredOrNot) {
  for (const std::string declared : {" xmlns:r='urn:r' xmlns:dc='urn:dc' xmlns='urn:rss'", ""}) {
    const XmlElement root = Root("<r:RDF" + declared + " dc:b='1' b='2'><dc:t/><t>3</t></r:RDF>");
    EXPECT_EQ(root.Name() + root.FirstDescendant("dc:t").Name(), "r:RDFdc:t");
    EXPECT_EQ(root.Attribute("dc:b").value() + root.Attribute("b").value(), "12");
    EXPECT_TRUE(root.HasName("r:RDF") && !root.HasName("RDF") && !root.Attribute("c"));
    EXPECT_EQ(root.FirstDescendant("t").Text(), "3");
  }
}

TEST_F(DocumentTest, XmlTextsAreJoinedResolvedAndInUtf8) {
  ExpectRows(
      [this](auto& bytes) { return Root(bytes).Text(); },
      {"<a>\n 1<!-- no --> <![CDATA[<2> & ]]><?php no ?><b>3<c/>\t4</b> \n</a> -> 1 <2> & 3\t4",
       "<a/> -> ", "\xEF\xBB\xBF<a><![CDATA[ 가 ]]></a> -> 가",
       "<!DOCTYPE a [<!ENTITY in 'i'><!ENTITY o 'x &in;'>]><a>&o;&#x21;</a> -> x i!",
       "<!DOCTYPE a [<!ENTITY e '<b>d</b>'>]><a>&e;&e;</a> -> dd",
       Repeated("<a>", 200) + "x" + Repeated("</a>", 200) + " -> x"});
  const XmlElement root =
      Root("<!DOCTYPE a [<!ENTITY site 'http://a'>]><a h='&site;/?x&amp;y=&#44032;' empty=''/>");
  EXPECT_EQ(root.Attribute("h").value() + root.Attribute("empty").value(), "http://a/?x&y=가");
  for (const std::string name : {"EUC-KR", "euc-kr", "ks_c_5601-1987", "KSC5601", "CP949"}) {
    const std::string start = "<?xml version='1.0' encoding='" + name + "'?><a>";
    EXPECT_EQ(Root(start + CodePage::Korean().FromUtf8("똠방") + "</a>").Text(), "똠방") << name;
  }
  EXPECT_EQ(Root({"\xFF\xFE<\0a\0>\0\0\xAC<\0/\0a\0>\0", 18}).Text(), "가");
}

TEST_F(DocumentTest, NothingOutsideAnXmlDocumentIsEverLoaded) {
  const std::string secret = "'" + folder_.Write("secret.txt", "SECRET") + "'";
  const std::string dtd = "'file://" + folder_.Write("other.dtd", "<!ENTITY leak 'SECRET'>") + "'";
  for (const std::string& type :
       {"[<!ENTITY leak SYSTEM " + secret + ">]", "[<!ENTITY leak PUBLIC 'p' " + secret + ">]",
        "[<!ENTITY % p SYSTEM " + dtd + ">%p;]", "SYSTEM " + dtd, "PUBLIC 'p' " + dtd})
    EXPECT_EQ(Root("<!DOCTYPE a " + type + "><a t='1'>safe<b>&leak;</b></a>").Text(), "safe");
}

TEST_F(DocumentTest, XmlTakesNoMoreMemoryThanItMay) {
  const std::string type = "<!DOCTYPE a [<!ENTITY e '" + Repeated("<b/>", 50) + "'><!ENTITY f '" +
                           Repeated("&e;", 10) + "'>]><a>";
  const XmlLimits limits{.most = 1 << 20};
  const auto fits = [&](auto& part) {  // how many, rounded down to a power of two
    std::size_t count = 1;
    while (Load(type + Repeated(part, 2 * count) + "</a>", limits) == Status::Loaded) count *= 2;
    return std::to_string(count);
  };
  ExpectRows(fits, {"<b/> -> 4096", "<b c='a value of some length'/> -> 2048", "&e; -> 64",
                    "<b xmlns:n='http://name.example/space'/> -> 2048", "&f; -> 8",
                    "a text of some length <b/> -> 2048", "0123456789abcde -> 32768",
                    "<![CDATA[a text of some length]]><b/> -> 2048"});
  EXPECT_EQ(Load("<!DOCTYPE a [<!ENTITY loop 'x&loop;'>]><a>&loop;</a>"), Status::TooLarge);
}

TEST_F(DocumentTest, LargeXmlAsksOnceAndALongTagIsRefused) {
  for (const bool may : {true, false}) {
    int asked = 0;
    const XmlLimits limits{.atOnce = 10'000, .askForMore = [&] { return ++asked > 0 && may; }};
    EXPECT_EQ(Load("<a>" + std::string(100'000, 'x') + "<b/></a>", limits) == Status::Loaded, may);
    EXPECT_EQ(asked, 1);
  }
  const std::string x(1 << 20, 'x'), declarations = Repeated("<!ENTITY e 'x'>", 400'000);
  EXPECT_EQ(Load("<a" + Repeated(" a=''", 400'000) + "/>"), Status::TooLarge);
  EXPECT_EQ(Load("<!DOCTYPE a [" + declarations + "]><a/>"), Status::TooLarge);
  for (const std::string& text : {x, "<![CDATA[" + x + "]]>", "<!--" + x + "-->" + x})
    EXPECT_EQ(Root("<a>" + text + "</a>").Text().size(), x.size());
}

TEST_F(DocumentTest, WhatIsNoXmlIsUnreadable) {
  for (const char* text : {"", "word", "<a></b>", "<a>&nbsp;</a>", "<a/><b/>", "<a>\xFF</a>",
                           "<?xml version='1.0' encoding='nowhere'?><a>\xB0\xA1</a>"}) {
    Root("<a/>");
    EXPECT_EQ(Load(text), Status::Unreadable) << text;
  }
  EXPECT_EQ(document_.Load(folder_.File("missing.xml")), Status::Unreadable);
}

}  // namespace feedloom
