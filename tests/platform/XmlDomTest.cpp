#include <gtest/gtest.h>

#include <array>
#include <chrono>

#include "kit/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/XmlDom.h"

namespace feedloom {
namespace {

using LoadStatus = XmlDocument::LoadStatus;

class XmlDomTest : public testing::Test {
 protected:
  LoadStatus Load(std::string_view bytes) {
    return document_.Load(folder_.Write("document.xml", bytes));
  }

  // The root of a document that must load.
  XmlElement Root(std::string_view bytes) {
    EXPECT_EQ(Load(bytes), LoadStatus::Loaded);
    return document_.Root();
  }

  const TempFolder folder_;
  XmlDocument document_;
};

std::string Nested(int depth) {
  std::string start, end;
  for (int i = 0; i < depth; ++i) {
    start += "<a>";
    end += "</a>";
  }
  return start + "x" + end;
}

TEST_F(XmlDomTest, NamesCompareAsTheyAreWritten) {
  const XmlElement root = Root(
      "<rdf:RDF xmlns:rdf='urn:rdf' xmlns:dc='urn:dc' xmlns:media='urn:m' xmlns='urn:rss'>"
      "<media:title>wrong</media:title><title>right</title><dc:date>now</dc:date></rdf:RDF>");
  EXPECT_EQ(root.Name(), "rdf:RDF");
  EXPECT_TRUE(root.HasName("rdf:RDF"));
  EXPECT_FALSE(root.HasName("RDF"));
  EXPECT_EQ(root.FirstDescendant("title").Text(), "right");
  EXPECT_EQ(root.FirstDescendant("dc:date").Text(), "now");
  EXPECT_FALSE(root.FirstDescendant("date"));
  EXPECT_FALSE(root.FirstDescendant("DC:date"));
}

TEST_F(XmlDomTest, APrefixWithoutADeclarationIsNoFault) {
  const XmlElement root = Root("<rss a:b='1' b='2'><dc:date x='3'>now</dc:date><date/></rss>");
  EXPECT_EQ(root.FirstDescendant("dc:date").Text(), "now");
  EXPECT_EQ(root.FirstDescendant("dc:date").Name(), "dc:date");
  EXPECT_EQ(root.FirstDescendant("date").Text(), "");
  EXPECT_EQ(root.Attribute("a:b"), "1");
  EXPECT_EQ(root.Attribute("b"), "2");
}

TEST_F(XmlDomTest, AttributesComeWithReferencesResolved) {
  const XmlElement root = Root(
      "<!DOCTYPE a [<!ENTITY site 'http://a.example'>]>"
      "<a href='&site;/?x=1&amp;y=&#44032;' empty='' xml:lang='ko'/>");
  EXPECT_EQ(root.Attribute("href"), "http://a.example/?x=1&y=가");
  EXPECT_EQ(root.Attribute("empty"), "");
  EXPECT_EQ(root.Attribute("xml:lang"), "ko");
  EXPECT_EQ(root.Attribute("lang"), std::nullopt);
}

TEST_F(XmlDomTest, TextJoinsAllTextBelowAndLeavesOutRemarks) {
  EXPECT_EQ(
      Root("<a>\n one<!-- no --> <![CDATA[<two> & ]]><?php no ?><b>three<c/>\t4</b> \n</a>").Text(),
      "one <two> & three\t4");
  EXPECT_EQ(Root("<a><![CDATA[ only ]]></a>").Text(), "only");
  EXPECT_EQ(Root("<a/>").Text(), "");
}

TEST_F(XmlDomTest, ListsDescendantsAndChildrenInDocumentOrder) {
  const XmlElement root =
      Root("<r><i>1<i>2</i></i><group><i>3</i></group><i>4</i><last/><!-- <i>no</i> --></r>");
  std::string all, direct;
  for (const XmlElement& element : root.Descendants("i")) all += element.Text() + " ";
  for (const XmlElement& element : root.Children("i")) direct += element.Text() + " ";
  EXPECT_EQ(all, "12 2 3 4 ");
  EXPECT_EQ(direct, "12 4 ");
  EXPECT_EQ(root.Children("group")[0].Descendants("last").size(), 0u) << "the subtree only";

  const std::array<std::string_view, 3> names{"last", "i", "none"};
  std::array<XmlElement, 3> found;
  root.FirstDescendants(names, found);
  EXPECT_TRUE(found[0]);
  EXPECT_EQ(found[1].Text(), "12");
  EXPECT_FALSE(found[2]);
}

TEST_F(XmlDomTest, EntitiesOfTheDocumentItselfAreResolved) {
  EXPECT_EQ(
      Root("<!DOCTYPE a [<!ENTITY in 'inner'><!ENTITY out 'x &in; y'>]><a>&out;&#x21;</a>").Text(),
      "x inner y!");
  EXPECT_EQ(Root("<!DOCTYPE a [<!ENTITY e '<b>deep</b>'>]><a>&e;&e;</a>").Descendants("b").size(),
            2u);
}

TEST_F(XmlDomTest, NothingOutsideTheDocumentIsEverLoaded) {
  const std::string secret = folder_.Write("secret.txt", "SECRET");
  const std::string dtd = folder_.Write("other.dtd", "<!ENTITY leak 'SECRET'>");
  const std::array documents{
      "<!DOCTYPE a [<!ENTITY x SYSTEM '" + secret + "'>]><a t='1'>safe&x;</a>",
      "<!DOCTYPE a [<!ENTITY x SYSTEM 'file://" + secret + "'>]><a>safe&x;</a>",
      "<!DOCTYPE a [<!ENTITY x PUBLIC 'p' '" + secret + "'>]><a>safe<b>&x;</b></a>",
      "<!DOCTYPE a [<!ENTITY % p SYSTEM '" + dtd + "'>%p;]><a>safe&leak;</a>",
      "<!DOCTYPE a SYSTEM '" + dtd + "'><a>safe&leak;</a>",
      "<!DOCTYPE a PUBLIC 'p' '" + dtd + "'><a>safe&leak;</a>",
  };
  for (const std::string& text : documents) {
    EXPECT_EQ(Root(text).Text(), "safe") << text;
  }
  Root("<a xmlns:xi='http://www.w3.org/2001/XInclude'><xi:include parse='text' href='" + secret +
       "'/></a>");
  EXPECT_EQ(document_.Root().Text(), "");
}

TEST_F(XmlDomTest, AnEntityBombIsRefusedQuickly) {
  std::string exponential = "<!DOCTYPE a [<!ENTITY e0 'lollollol'>";
  for (int i = 1; i <= 12; ++i) {
    const std::string below = "&e" + std::to_string(i - 1) + ";";
    exponential += "<!ENTITY e" + std::to_string(i) + " '";
    for (int k = 0; k < 10; ++k) exponential += below;
    exponential += "'>";
  }
  exponential += "]><a>&e12;</a>";
  std::string quadratic = "<!DOCTYPE a [<!ENTITY e '" + std::string(200'000, 'x') + "'>]><a>";
  for (int i = 0; i < 50'000; ++i) quadratic += "&e;";
  quadratic += "</a>";

  for (const std::string& bomb : {exponential, quadratic}) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Load(bomb), LoadStatus::TooLarge);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  }
}

TEST_F(XmlDomTest, ADocumentTakesNoMoreMemoryThanItMay) {
  const auto repeated = [](const std::string& part, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
  };
  const std::string bold = "<!DOCTYPE a [<!ENTITY e '" + repeated("<b/>", 50) +
                           "'><!ENTITY f '&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;'>]>";
  // Of which about a megabyte is room for these, and not for ten times as much.
  const std::vector<std::pair<std::string, std::string>> parts{
      {"<a>", "<b/>"},
      {"<a>", "<b c='a value of some length'/>"},
      {"<a>", "<b xmlns:n='http://name.example/space'/>"},
      {"<a>", "a text of some length <b/>"},
      {"<a>", "<![CDATA[a text of some length]]><b/>"},
      {bold + "<a>", "&e;"},
      {bold + "<a>", "&f;"},
  };
  for (const auto& [start, part] : parts) {
    const int times = start.size() > 3 ? (part == "&f;" ? 8 : 80) : 1900;
    folder_.Write("a.xml", start + repeated(part, times) + "</a>");
    EXPECT_EQ(document_.Load(folder_.File("a.xml"), {}, {.most = 1 << 20}), LoadStatus::Loaded)
        << part;
    folder_.Write("a.xml", start + repeated(part, 10 * times) + "</a>");
    EXPECT_EQ(document_.Load(folder_.File("a.xml"), {}, {.most = 1 << 20}), LoadStatus::TooLarge)
        << part;
  }
}

TEST_F(XmlDomTest, ALargeDocumentAsksOnceAndIsRefusedWhenItMayNot) {
  folder_.Write("a.xml", "<a>" + std::string(100'000, 'x') + "<b/></a>");
  for (const bool may : {true, false}) {
    int asked = 0;
    const XmlLimits limits{.atOnce = 10'000, .askForMore = [&] { return ++asked > 0 && may; }};
    EXPECT_EQ(document_.Load(folder_.File("a.xml"), {}, limits) == LoadStatus::Loaded, may);
    EXPECT_EQ(asked, 1);
  }
}

TEST_F(XmlDomTest, ATagOrADocumentTypeWithoutEndIsRefusedQuicklyATextIsNot) {
  std::string attributes = "<a";
  std::string declarations = "<!DOCTYPE a [";
  for (int i = 0; i < 400'000; ++i) {
    attributes += " a" + std::to_string(i) + "=''";
    declarations += "<!ENTITY e" + std::to_string(i) + " 'x'>";
  }
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Load(attributes + "/>"), LoadStatus::TooLarge);
  EXPECT_EQ(Load(declarations + "]><a/>"), LoadStatus::TooLarge);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  const std::string megabyte(1 << 20, 'x');
  for (const std::string& text : {megabyte, "<![CDATA[" + megabyte + "]]>"}) {
    EXPECT_EQ(Root("<a><!--" + megabyte + "-->" + text + "</a>").Text().size(), megabyte.size());
  }
}

TEST_F(XmlDomTest, EveryKoreanDeclarationIsReadAsTheExtendedCodePage) {
  for (const std::string name : {"EUC-KR", "euc-kr", "ks_c_5601-1987", "KSC5601", "CP949"}) {
    EXPECT_EQ(Root("<?xml version='1.0' encoding='" + name + "'?><a>" +
                   CodePage::Korean().FromUtf8("똠방각하") + "</a>")
                  .Text(),
              "똠방각하")
        << name;
  }
}

TEST_F(XmlDomTest, ReadsUtf8WithAMarkAndUtf16) {
  EXPECT_EQ(Root("\xEF\xBB\xBF<a>가</a>").Text(), "가");
  const auto wide = [](std::u16string_view text, bool bigEndian) {
    std::string bytes;
    for (const char16_t c : text) {
      const char high = static_cast<char>(c >> 8);
      const char low = static_cast<char>(c & 0xFF);
      bytes += {bigEndian ? high : low, bigEndian ? low : high};
    }
    return bytes;
  };
  constexpr std::u16string_view kText = u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><a>가</a>";
  EXPECT_EQ(Root(wide(kText, false)).Text(), "가");
  EXPECT_EQ(Root(wide(kText, true)).Text(), "가");
}

TEST_F(XmlDomTest, DeepNestingIsRefused) {
  EXPECT_EQ(Root(Nested(200)).Text(), "x");
  EXPECT_EQ(Load(Nested(100'000)), LoadStatus::Unreadable);
}

TEST_F(XmlDomTest, WhatIsNoDocumentIsUnreadable) {
  ASSERT_TRUE(Root("<a/>"));
  for (const std::string text :
       {"", " ", "word", "<a>", "<a></b>", "<a>&nbsp;</a>", "<a/><b/>", "<a>\xFF</a>",
        "<?xml version='1.0' encoding='nowhere'?><a>\xB0\xA1</a>"}) {
    EXPECT_EQ(Load(text), LoadStatus::Unreadable) << text;
    EXPECT_FALSE(document_.Root()) << text;
  }
  EXPECT_EQ(document_.Load(folder_.File("missing.xml")), LoadStatus::Unreadable);
  EXPECT_EQ(document_.Load(folder_.Path()), LoadStatus::Unreadable);
}

TEST_F(XmlDomTest, AStoppedLoadReadsNoFurther) {
  std::stop_source stop;
  const std::string path = folder_.Write("document.xml", "<a/>");
  EXPECT_EQ(document_.Load(path, stop.get_token()), LoadStatus::Loaded);
  stop.request_stop();
  EXPECT_EQ(document_.Load(path, stop.get_token()), LoadStatus::Unreadable);
}

}  // namespace
}  // namespace feedloom
