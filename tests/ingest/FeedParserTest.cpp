#include <gtest/gtest.h>

#include "ingest/FeedParser.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

class Parsing : public testing::Test {
 protected:
  // Parses `document` and keeps the parser for a look at what it read.
  int Parse(const std::string& document, CodePage codePage = CodePage::Korean()) {
    parser_.emplace(codePage);
    return parser_->Parse(folder_.Write("feed.xml", document));
  }

  const FeedItem& Item(std::size_t index) {
    static const FeedItem none;
    EXPECT_LT(index, parser_->Items().size());
    return index < parser_->Items().size() ? parser_->Items()[index] : none;
  }

  // The only item of an RSS 2.0 document with `fields`.
  const FeedItem& RssItem(const std::string& fields) {
    EXPECT_EQ(Parse("<rss version='2.0'><channel><item>" + fields + "</item></channel></rss>"), 0);
    return Item(0);
  }

  std::size_t RssItemCount(const std::string& fields) {
    EXPECT_EQ(Parse("<rss version='2.0'><channel><item>" + fields + "</item></channel></rss>"), 0);
    return parser_->Items().size();
  }

  TempFolder folder_;
  std::optional<FeedParser> parser_;
};

TEST_F(Parsing, TellsTheFormatByRootAndVersion) {
  struct {
    const char* document;
    int result;
    FeedFormat format;
    int rss;
    int atom;
  } const cases[] = {
      {"<rss version='2.0'/>", 0, FeedFormat::Rss, 2, -1},
      {"<rss version='0.91'/>", 0, FeedFormat::Rss, 0, -1},
      {"<rss version='2.01'/>", 0, FeedFormat::Rss, 0, -1},
      {"<rss version=''/>", 0, FeedFormat::Rss, 0, -1},
      {"<rss/>", -93, FeedFormat::Unknown, -1, -1},
      {"<rdf:RDF xmlns:rdf='r'/>", 0, FeedFormat::Rss, 1, -1},
      {"<rdf:RDF/>", 0, FeedFormat::Rss, 1, -1},
      {"<r:RDF xmlns:r='http://www.w3.org/1999/02/22-rdf-syntax-ns#'/>", -92, FeedFormat::Unknown,
       -1, -1},
      {"<feed xmlns='http://www.w3.org/2005/Atom'/>", 0, FeedFormat::Atom, -1, 10},
      {"<feed version='0.3'/>", 0, FeedFormat::Atom, -1, 3},
      {"<feed version='1.0'/>", -93, FeedFormat::Atom, -1, -1},
      {"<feed version=''/>", -93, FeedFormat::Atom, -1, -1},
      {"<RSS version='2.0'/>", -92, FeedFormat::Unknown, -1, -1},
      {"<html/>", -92, FeedFormat::Unknown, -1, -1},
      {"not xml", -98, FeedFormat::Unknown, -1, -1},
      {"<rss version='2.0'>", -98, FeedFormat::Unknown, -1, -1},
      {"", -98, FeedFormat::Unknown, -1, -1},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Parse(c.document), c.result) << c.document;
    EXPECT_EQ(parser_->GetFormat(), c.format) << c.document;
    EXPECT_EQ(parser_->Variants().rss, c.rss) << c.document;
    EXPECT_EQ(parser_->Variants().atom, c.atom) << c.document;
  }
  EXPECT_EQ(FeedParser(CodePage::Korean()).Parse(folder_.File("absent.xml")), -98);
}

TEST_F(Parsing, TheHeaderIsTheFirstTitleAndLinkAnywhere) {
  Parse(
      "<rss version='2.0'><channel><image><title>Logo</title></image><title>Site</title>"
      "<link> http://site/ </link></channel></rss>");
  EXPECT_EQ(parser_->GetChannelTitle(), "Logo");
  EXPECT_EQ(parser_->GetChannelLink(), "http://site/");
  Parse(
      "<feed><title>A</title><link rel='self' href='http://self/'/><link "
      "href='http://b/'/></feed>");
  EXPECT_EQ(parser_->GetChannelTitle(), "A");
  EXPECT_EQ(parser_->GetChannelLink(), "http://self/");
  Parse("<rss version='2.0'/>");
  EXPECT_EQ(parser_->GetChannelTitle(), "");
}

TEST_F(Parsing, ReadsAnRssItemsFields) {
  const FeedItem& item = RssItem(
      "<media:title>other</media:title><title> A <![CDATA[<b>]]>&amp;lt;<!-- no --> B</title>"
      "<link>http://l/</link><description>&lt;p&gt;x&lt;/p&gt;<i>y</i></description>"
      "<pubDate>Tue, 10 Jun 2003 04:00:00 GMT</pubDate>");
  EXPECT_EQ(item.title, "A <b>&lt; B");
  EXPECT_EQ(item.link, "http://l/");
  EXPECT_EQ(item.description, "<p>x</p>y");
  EXPECT_EQ(item.date, "Tue, 10 Jun 2003 04:00:00 GMT");
  EXPECT_EQ(item.isPodcast, 0);
}

TEST_F(Parsing, AnEnclosureTakesTheLinksPlaceInRss20Only) {
  const std::string fields =
      "<title>t</title><link>http://page/</link><enclosure url='http://m/a.mp3' "
      "type='audio/mpeg'/><enclosure url='second'/>";
  const FeedItem& podcast = RssItem(fields);
  EXPECT_EQ(podcast.link, "http://m/a.mp3");
  EXPECT_EQ(podcast.enclosureType, "audio/mpeg");
  EXPECT_EQ(podcast.isPodcast, 1);
  EXPECT_EQ(RssItemCount("<title>t</title><link>l</link><enclosure type='x'/>"), 0u);

  Parse("<rss version='0.92'><item>" + fields + "</item></rss>");
  EXPECT_EQ(Item(0).link, "http://page/");
  EXPECT_EQ(Item(0).isPodcast, 0);
}

TEST_F(Parsing, DatesComeFromTheVariantsOwnElements) {
  const std::string head = "<title>t</title><link>l</link>";
  EXPECT_EQ(RssItem(head + "<dc:date>D</dc:date><pubDate>P</pubDate>").date, "P");
  EXPECT_EQ(RssItem(head + "<pubDate> </pubDate><dc:date>D</dc:date>").date, "D");
  EXPECT_EQ(RssItem(head + "<date>D</date>").date, "");
  Parse("<rdf:RDF><item>" + head + "<pubDate>P</pubDate><dc:date>D</dc:date></item></rdf:RDF>");
  EXPECT_EQ(Item(0).date, "D");
  Parse("<rdf:RDF><item>" + head + "<pubDate>P</pubDate></item></rdf:RDF>");
  EXPECT_EQ(Item(0).date, "");
}

TEST_F(Parsing, ItemsWithoutTitleOrLinkAreLeftOut) {
  EXPECT_EQ(RssItemCount("<title> </title><link>l</link>"), 0u);
  EXPECT_EQ(RssItemCount("<title>t</title>"), 0u);
  Parse(
      "<rss version='2.0'><channel><item><title>1</title><link>a</link></item><item/>"
      "<item><title>2</title><link>b</link></item></channel></rss>");
  ASSERT_EQ(parser_->Items().size(), 2u);
  EXPECT_EQ(Item(1).title, "2");
}

TEST_F(Parsing, ReadsAtomEntries) {
  Parse(
      "<feed version='0.3'><entry><title>t</title><link rel='x' href='http://l/'/>"
      "<issued>2003-06-10T04:00:00Z</issued><summary>s</summary></entry></feed>");
  EXPECT_EQ(Item(0).link, "http://l/");
  EXPECT_EQ(Item(0).date, "2003-06-10T04:00:00Z");
  EXPECT_EQ(Item(0).description, "");
  Parse(
      "<feed><entry><title>t</title><link href='l'/><updated>2003</updated></entry>"
      "<entry><title>without a link</title></entry></feed>");
  ASSERT_EQ(parser_->Items().size(), 1u);
  EXPECT_EQ(Item(0).date, "");
}

TEST_F(Parsing, TextsEndInTheModulesCodePage) {
  const std::string utf8 =
      "<?xml version='1.0' encoding='UTF-8'?><rss version='2.0'><title>똠방각하 ♥ 😀 "
      "é</title></rss>";
  Parse(utf8);
  const std::string korean = parser_->GetChannelTitle();
  EXPECT_EQ(CodePage::Korean().ToUtf8(korean), "똠방각하 ♥ ? ?");
  Parse(utf8, CodePage::Utf8());
  EXPECT_EQ(parser_->GetChannelTitle(), "똠방각하 ♥ 😀 é");
  Parse("<?xml version='1.0' encoding='EUC-KR'?><rss version='2.0'><title>" + korean +
        "</title></rss>");
  EXPECT_EQ(parser_->GetChannelTitle(), korean);
}

TEST_F(Parsing, AnOpmlDocumentYieldsTwoLevelsOfOutlines) {
  ASSERT_EQ(Parse("<opml version='1.0'><head><outline text='not of the body'/></head>"
                  "<body><outline text='Folder'>"
                  "<outline type='rss' text='A &amp; B' title='T' xmlUrl=' http://x/č '"
                  " htmlUrl='http://h/' url='u'><outline text='too deep'><outline xmlUrl='u'/>"
                  "</outline></outline></outline></body>"
                  "<outline text='without a body'/></opml>"),
            0);
  EXPECT_EQ(parser_->GetFormat(), FeedFormat::Opml);
  EXPECT_FALSE(parser_->IsFeed());
  ASSERT_EQ(parser_->Outlines().size(), 2u);
  EXPECT_EQ(parser_->Outlines()[0].text, "without a body");
  const OpmlOutline& folder = parser_->Outlines()[1];
  EXPECT_EQ(folder.text, "Folder");
  ASSERT_EQ(folder.children.size(), 1u);
  EXPECT_EQ(folder.children[0].text, "A & B");
  EXPECT_EQ(folder.children[0].xmlUrl, "http://x/%C4%8D");
  EXPECT_EQ(folder.children[0].deeperFeeds, 1);
  EXPECT_TRUE(folder.children[0].children.empty());
}

TEST_F(Parsing, OutlinesAreReadUntilAStopOrUntilThereAreTooMany) {
  std::string outlines;
  for (std::size_t i = 0; i < kMostOutlines / 2 + 2; ++i)
    outlines += "<outline><outline/></outline>";
  XmlDocument document;
  ASSERT_EQ(document.Load(folder_.Write("f.xml", "<body>" + outlines + "</body>")),
            XmlDocument::LoadStatus::Loaded);
  std::stop_source stop;
  std::vector<OpmlOutline> out;
  EXPECT_EQ(ReadOpmlOutlines(document.Root(), CodePage::Korean(), stop.get_token(), out), 0);
  EXPECT_EQ(CountOutlines(out), kMostOutlines + 1);
  stop.request_stop();
  std::vector<OpmlOutline> none;
  EXPECT_EQ(ReadOpmlOutlines(document.Root(), CodePage::Korean(), stop.get_token(), none), 0);
  EXPECT_TRUE(none.empty());
}

TEST_F(Parsing, ContradictoryVariantsHaveACodeForEachStep) {
  XmlDocument document;
  ASSERT_EQ(document.Load(folder_.Write("f.xml", "<rss version='2.0'><item/></rss>")),
            XmlDocument::LoadStatus::Loaded);
  const FeedVariants both{.rss = 2, .atom = 10};
  const FeedVariants odd{.rss = 7, .atom = -1};
  std::vector<FeedItem> items;
  FeedHeader header{.variants = both, .title = "", .link = ""};
  FeedItem item;
  const CodePage page = CodePage::Korean();
  EXPECT_EQ(ReadFeedHeader(document.Root(), page, header), -700);
  EXPECT_EQ(ReadFeedItems(document.Root(), both, page, {}, items), -93);
  EXPECT_EQ(ReadFeedItems(document.Root(), {}, page, {}, items), -648);
  EXPECT_EQ(ReadFeedItems(document.Root(), odd, page, {}, items), -150);
  item.variants = both;
  EXPECT_EQ(ReadFeedItem(document.Root(), page, item), -600);
  std::vector<OpmlOutline> outlines;
  EXPECT_EQ(ReadOpmlOutlines({}, page, {}, outlines), -499);
}

TEST_F(Parsing, EndsBetweenTwoItemsWhenItIsToldTo) {
  std::stop_source stop;
  stop.request_stop();
  FeedParser parser(CodePage::Korean());
  EXPECT_LT(
      parser.Parse(folder_.Write("f.xml", "<rss version='2.0'><item/></rss>"), stop.get_token()),
      0);
}

}  // namespace
}  // namespace feedloom
