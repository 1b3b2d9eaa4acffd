// XML documents with faults, and their encodings.
#include "kit/Rows.h"
#include "kit/TempFolder.h"
#include "text/CodePage.h"
#include "text/Converter.h"
#include "xml/HtmlText.h"
#include "xml/XmlDom.h"
#include "xml/XmlMending.h"

namespace feedloom {

struct FaultyXml : testing::Test {
  // The text of the document, and of its attribute "h"; "" for one that is refused.
  std::string Read(std::string_view bytes, XmlFaults faults) {
    XmlDocument document;
    const auto status = document.Load(folder_.Write("a.xml", bytes), {}, {}, faults);
    if (status != XmlDocument::LoadStatus::Loaded) return document.Excess();
    return document.Root().Text() + document.Root().Attribute("h").value_or("");
  }
  std::string Mended(std::string_view bytes) { return Read(bytes, XmlFaults::Mended); }
  std::string Strict(std::string_view bytes) { return Read(bytes, XmlFaults::Refused); }

  static std::string Wide(const std::string& encoding, std::string_view utf8) {
    std::string wide;
    EXPECT_TRUE(Converter(encoding.c_str(), "UTF-8").Convert(utf8, wide));
    return wide;
  }

  const TempFolder folder_;
};

TEST_F(FaultyXml, IsReadWhenTheFaultIsACommonOneAndTheHostWantsIt) {
  const std::string mark = "\xEF\xBB\xBF", declaration = "<?xml version='1.0'?>";
  for (const auto& [document, text] : std::initializer_list<std::pair<std::string, std::string>>{
           {" \n" + declaration + "<a>x</a>", "x"},
           {mark + mark + "\n" + mark + declaration + "\n<a>x</a>", "x"},
           {"<a>1\x01<![CDATA[2\x1C&]]>\xEF\xBF\xBE&#31;&#x0;3<!--\v--></a>", "12&3"},
           {std::string("<a>1\0002</a>", 10), "12"},
           {"<a h='?b=1&c=2&amp;d'>A & B &; &#x; &#65; AT&T</a>", "A & B &; &#x; A AT&T?b=1&c=2&d"},
           {"<a h='&eacute;'>&uuml;&nosuch;&nbsp&#8212;</a>", "ü&nosuch;&nbsp—é"},
           {"<!DOCTYPE a [<!ENTITY e 'E & \"'>]><a>&e; & &euml;</a>", ""},
           {"<!DOCTYPE a [<!ENTITY e 'E>\"'>]><a>&e; & &euml;</a>", "E>\" & ë"},
           {"<?p & ?><!-- & --><a>&</a>", "&"}}) {
    EXPECT_EQ(Strict(document), "") << document;
    EXPECT_EQ(Mended(document), text) << document;
  }
}

TEST_F(FaultyXml, BytesOfAnotherEncodingThanTheDeclaredOneAreRead) {
  const auto declared = [](const std::string& name, const std::string& text) {
    return "<?xml version='1.0' encoding='" + name + "'?><a>" + text + "</a>";
  };
  const std::string korean = CodePage::Korean().FromUtf8("오늘");
  for (const auto& [document, text] : std::initializer_list<std::pair<std::string, std::string>>{
           {declared("UTF-8", "Z\xFCrich \x93\xE9\x94"), "Zürich “é”"},
           {declared("UTF-8", "Z\xFCrich 가"), "Zürich 가"},
           {declared("UTF-8", "가\xEB\x82..."), "가\xEF\xBF\xBD..."},
           {declared("utf-8", korean), "오늘"},
           {declared("euc-kr", "오늘"), "오늘"},
           {declared("EUC-KR", korean + "\xFF \xEB"), "오늘\xEF\xBF\xBD \xEF\xBF\xBD"},
           {declared("us-ascii", "é"), "é"},
           {declared("utf-16", "é"), "é"},
           {declared("no/such", "é"), "é"}}) {
    EXPECT_EQ(Strict(document), "") << document;
    EXPECT_EQ(Mended(document), text) << document;
  }
}

TEST_F(FaultyXml, OfAnyOtherKindIsRefused) {
  for (const char* document :
       {"", "\n", "x<a/>", "<a>x</b>", "<a>x", "<a h=1>x</a>", "<a>x < y</a>", "<a>x</a><b/>",
        "<a><![CDATA[x</a>", "<!DOCTYPE a [<a>x</a>", "<a><!-- x -- y -->x</a>"})
    EXPECT_EQ(Mended(document), "") << document;
  EXPECT_NE(Mended("<a>x&" + std::string((4 << 20) - 10, 'x') + "</a>"), "");
  EXPECT_EQ(Mended("<a>x&" + std::string(4 << 20, 'x') + "</a>"), "");
}

TEST_F(FaultyXml, IsMendedInLinearTime) {
  constexpr std::size_t kMany = 500'000;
  for (const std::string part :
       {"&", "&a", "&#", "\xFC", "\xEB\x82", "\x01", "<!--", "<![CDATA[", "<?", "<!DOCTYPE ["})
    EXPECT_LE(MendedXml("<a>" + Repeated(part, kMany)).size(), 3 + 5 * part.size() * kMany) << part;
}

TEST_F(FaultyXml, WithoutMendingHtmlsEntitiesAreKnownWhereDeclarationsAreNotLoaded) {
  const std::string type = "<!DOCTYPE a SYSTEM 'a.dtd' [<!ENTITY auml 'mine'>]>";
  EXPECT_EQ(Strict(type + "<a h='&eacute;'>tsch&uuml;ss&auml;&nosuch;</a>"), "tschüssmineé");
  EXPECT_EQ(Strict("<!DOCTYPE a [<!ENTITY auml 'mine'>]><a>&uuml;</a>"), "");
  EXPECT_EQ(Strict("<?xml version='1.0' standalone='yes'?>" + type + "<a>&uuml;</a>"), "");
}

TEST_F(FaultyXml, WideEncodingsAreToldByTheirFirstBytes) {
  for (const std::string name : {"UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"}) {
    const std::string declaration = "<?xml version='1.0' encoding='" + name.substr(0, 6) + "'?>";
    const std::string mark = "\xEF\xBB\xBF", root = "<a>가 é 😀</a>";
    for (const std::string& text :
         {root, declaration + root, mark + root, mark + declaration + root}) {
      const std::string bytes = Wide(name, text);
      EXPECT_EQ(Strict(bytes), "가 é 😀") << name << text;
      EXPECT_EQ(Mended(bytes + Wide(name, "\n\x01")), "가 é 😀") << name << text;
    }
  }
}

TEST_F(FaultyXml, ALongValueIsReadAndWhatIsTooLargeSaysByHowMuch) {
  const std::string image(300'000, 'A'), value = "<a h='" + image + "'/>";
  EXPECT_EQ(Strict(value), image);
  EXPECT_EQ(Strict("<?p " + image + "?>" + value), image);
  ExpectRows([this](auto& part) { return Strict("<a>" + part + "</a>"); },
             {Repeated("<b/>", 400'000) + " -> too large: of its 1.5 MiB the first 0.7 fill the 32 "
                                          "MiB of memory that a document may take",
              std::string(11 << 20, 'x') + " -> too large: a tag or a text of more than 9 MiB in a "
                                           "document of 11.0 MiB",
              "<b c='" + std::string(11 << 20, 'x') +
                  "'/> -> too large: a tag or a text of more "
                  "than 9 MiB in a document of 11.0 MiB",
              "<b" + Repeated(" a=''", 40'000) +
                  "/> -> too large: a tag with more than 10000 "
                  "attributes",
              Repeated("<b>", 300) + " -> too large: more than 256 elements within each other"});
  EXPECT_EQ(Strict("<!DOCTYPE a [" + Repeated("<!ENTITY e 'x'>", 40'000) + "]><a/>"),
            "too large: more than 256 KiB of declarations");
}

TEST(HtmlText, IsWhatAReaderSees) {
  ExpectRows(
      [](auto& html) { return HtmlText(html, 80); },
      {"plain  text -> plain text",
       "<p>Hel<b>lo</b>,<br/>w&ouml;rld</p><p>&lt;3 &#44032;</p> -> Hello, wörld <3 가",
       "<style>p{}</style><script>x</script><!-- no -->a<img alt='i'> & b <c -> a & b",
       "<SCRIPT>'</p>'</Script >a<p title='>' x=\">\">b</P\n>c<!-->d<!x><?y>e</>f -> a b cdef",
       "&&amp;amp;&nosuch;&#x41&#65;&#0;&#xD800;&#99999999999;&#;AT&T -> &&amp;&nosuch;AA&#;AT&T",
       Repeated("<i>", 10'000) + "x -> x", Repeated("가", 6'000).insert(0, "<!--") + "-->x -> x",
       Repeated("<i title='", 10'000) + "x -> "});
}

}  // namespace feedloom
