#include <array>
#include <ctime>

#include "kit/TempFolder.h"
#include "platform/CodePage.h"
#include "platform/Rows.h"
#include "platform/XmlDom.h"

namespace feedloom {
namespace {

using Status = XmlDocument::LoadStatus;

class XmlDomTest : public testing::Test {
 protected:
  // Whatever the document is, loading it is quick.
  Status Load(std::string_view bytes, const XmlLimits& limits = {}) {
    const std::string path = folder_.Write("document.xml", bytes);
    const std::clock_t start = std::clock();  // of processor time
    const Status status = document_.Load(path, {}, limits);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 5);
    EXPECT_EQ(status == Status::Loaded, static_cast<bool>(document_.Root()));
    return status;
  }

  // The root of a document that must load.
  XmlElement Root(std::string_view bytes) {
    EXPECT_EQ(Load(bytes), Status::Loaded) << bytes.substr(0, 200);
    return document_.Root();
  }

  const TempFolder folder_;
  XmlDocument document_;
};

TEST_F(XmlDomTest, NamesAreWhatIsWrittenDeclaredOrNot) {
  for (const char* declared : {" xmlns:r='urn:r' xmlns:dc='urn:dc' xmlns='urn:rss'", ""}) {
    const XmlElement root = Root("<r:RDF" + std::string(declared) + " dc:b='1' b='2'>" +
                                 "<dc:title>wrong</dc:title><title>right</title></r:RDF>");
    EXPECT_EQ(root.Name(), "r:RDF");
    ExpectRows([&](auto& name) { return std::to_string(root.HasName(name)); },
               {"r:RDF -> 1", "RDF -> 0", "r_RDF -> 0", "s:RDF -> 0", "r:RDX -> 0", "R:RDF -> 0"});
    EXPECT_EQ(root.FirstDescendant("title").Text(), "right");
    EXPECT_EQ(root.FirstDescendant("dc:title").Text(), "wrong");
    EXPECT_FALSE(root.FirstDescendant("DC:title"));
    EXPECT_EQ(root.Attribute("dc:b").value() + root.Attribute("b").value(), "12");
    EXPECT_EQ(root.Attribute("c"), std::nullopt);
  }
}

TEST_F(XmlDomTest, TextsAreJoinedResolvedAndInUtf8) {
  ExpectRows(
      [this](auto& bytes) { return Root(bytes).Text(); },
      {"<a>\n 1<!-- no --> <![CDATA[<2> & ]]><?php no ?><b>3<c/>\t4</b> \n</a> -> 1 <2> & 3\t4",
       "<a><![CDATA[ only ]]></a> -> only", "<a/> -> ", "\xEF\xBB\xBF<a>가</a> -> 가",
       "<!DOCTYPE a [<!ENTITY in 'i'><!ENTITY o 'x &in;'>]><a>&o;&#x21;</a> -> x i!",
       "<!DOCTYPE a [<!ENTITY e '<b>d</b>'>]><a>&e;&e;</a> -> dd",
       Repeated("<a>", 200) + "x" + Repeated("</a>", 200) + " -> x"});
  const XmlElement root = Root(
      "<!DOCTYPE a [<!ENTITY site 'http://a'>]><a h='&site;/?x&amp;y=&#44032;' empty='' x:y='z'/>");
  EXPECT_EQ(root.Attribute("h"), "http://a/?x&y=가");
  EXPECT_EQ(root.Attribute("empty"), "");
  for (const std::string name : {"EUC-KR", "euc-kr", "ks_c_5601-1987", "KSC5601", "CP949"}) {
    const std::string start = "<?xml version='1.0' encoding='" + name + "'?><a>";
    EXPECT_EQ(Root(start + CodePage::Korean().FromUtf8("똠방") + "</a>").Text(), "똠방") << name;
  }
  std::string little, big;
  for (const char16_t c : u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><a>가</a>") {
    const char low = static_cast<char>(c & 0xFF), high = static_cast<char>(c >> 8);
    if (c != 0) little += {low, high};
    if (c != 0) big += {high, low};
  }
  EXPECT_EQ(Root(little).Text() + Root(big).Text(), "가가");
}

TEST_F(XmlDomTest, ListsDescendantsAndChildrenInDocumentOrder) {
  const XmlElement root =
      Root("<r><i>1<i>2</i></i><group><i>3</i></group><i>4</i><last/><!-- <i>no</i> --></r>");
  std::string all, direct;
  for (const XmlElement& element : root.Descendants("i")) all += element.Text() + " ";
  for (const XmlElement& element : root.Children("i")) direct += element.Text() + " ";
  EXPECT_EQ(all + "| " + direct, "12 2 3 4 | 12 4 ");
  EXPECT_TRUE(root.Children("group")[0].Descendants("last").empty());
  const std::array<std::string_view, 3> names{"last", "i", "none"};
  std::array<XmlElement, 3> found;
  root.FirstDescendants(names, found);
  EXPECT_TRUE(found[0] && !found[2]);
  EXPECT_EQ(found[1].Text(), "12");
}

TEST_F(XmlDomTest, NothingOutsideTheDocumentIsEverLoaded) {
  const std::string secret = folder_.Write("secret.txt", "SECRET");
  const std::string dtd = "'" + folder_.Write("other.dtd", "<!ENTITY leak 'SECRET'>") + "'";
  for (const std::string& type :
       {"[<!ENTITY leak SYSTEM '" + secret + "'>]",
        "[<!ENTITY leak SYSTEM 'file://" + secret + "'>]",
        "[<!ENTITY leak PUBLIC 'p' '" + secret + "'>]", "[<!ENTITY % p SYSTEM " + dtd + ">%p;]",
        "SYSTEM " + dtd, "PUBLIC 'p' " + dtd}) {
    EXPECT_EQ(Root("<!DOCTYPE a " + type + "><a t='1'>safe<b>&leak;</b></a>").Text(), "safe");
  }
}

TEST_F(XmlDomTest, ADocumentTakesNoMoreMemoryThanItMay) {
  const std::string type = "<!DOCTYPE a [<!ENTITY e '" + Repeated("<b/>", 50) + "'><!ENTITY f '" +
                           Repeated("&e;", 10) + "'>]><a>";
  // How many fit, rounded down to a power of two.
  ExpectRows(
      [&](auto& part) {
        std::size_t count = 1;
        while (Load(type + Repeated(part, 2 * count) + "</a>", {.most = 1 << 20}) == Status::Loaded)
          count *= 2;
        return std::to_string(count);
      },
      {"<b/> -> 4096", "<b c='a value of some length'/> -> 2048", "&e; -> 64", "&f; -> 8",
       "<b xmlns:n='http://name.example/space'/> -> 2048", "a text of some length <b/> -> 2048",
       "<![CDATA[a text of some length]]><b/> -> 2048", "0123456789abcde -> 32768"});
  EXPECT_EQ(Load("<!DOCTYPE a [<!ENTITY e 'x&e;'>]><a>&e;</a>"), Status::TooLarge);
  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'lollollol'>";
  for (int i = 1; i <= 12; ++i) {
    bomb += "<!ENTITY e" + std::to_string(i) + " '" +
            Repeated("&e" + std::to_string(i - 1) + ";", 10) + "'>";
  }
  EXPECT_EQ(Load(bomb + "]><a>&e12;</a>"), Status::TooLarge);
}

TEST_F(XmlDomTest, ALargeDocumentAsksOnceAndIsRefusedWhenItMayNot) {
  for (const bool may : {true, false}) {
    int asked = 0;
    const XmlLimits limits{.atOnce = 10'000, .askForMore = [&] { return ++asked > 0 && may; }};
    EXPECT_EQ(Load("<a>" + std::string(100'000, 'x') + "<b/></a>", limits) == Status::Loaded, may);
    EXPECT_EQ(asked, 1);
  }
}

TEST_F(XmlDomTest, ATagOrADocumentTypeWithoutEndIsRefusedAndATextIsNot) {
  EXPECT_EQ(Load("<a" + Repeated(" a=''", 400'000) + "/>"), Status::TooLarge);
  const std::string declarations = Repeated("<!ENTITY e 'x'>", 400'000);
  EXPECT_EQ(Load("<!DOCTYPE a [" + declarations + "]><a/>"), Status::TooLarge);
  const std::string x(1 << 20, 'x');
  for (const std::string& text : {x, "<![CDATA[" + x + "]]>", "<!--" + x + "-->" + x}) {
    EXPECT_EQ(Root("<a>" + text + "</a>").Text().size(), x.size());
  }
}

TEST_F(XmlDomTest, WhatIsNoDocumentIsUnreadable) {
  for (const std::string text :
       {"", "word", "<a>", "<a></b>", "<a>&nbsp;</a>", "<a/><b/>", "<a>\xFF</a>",
        "<?xml version='1.0' encoding='nowhere'?><a>\xB0\xA1</a>"}) {
    Root("<a/>");
    EXPECT_EQ(Load(text), Status::Unreadable) << text;
  }
  EXPECT_EQ(Load(Repeated("<a>", 100'000) + Repeated("</a>", 100'000)), Status::Unreadable);
  std::stop_source stop;
  stop.request_stop();
  const std::string path = folder_.Write("a.xml", "<a/>");
  EXPECT_EQ(document_.Load(path, stop.get_token()), Status::Unreadable);
  EXPECT_EQ(document_.Load(folder_.Path()), Status::Unreadable);
  EXPECT_EQ(document_.Load(folder_.File("missing.xml")), Status::Unreadable);
}

}  // namespace
}  // namespace feedloom
