#include <fmt/core.h>
#include <gtest/gtest.h>

#include <sstream>

#include "ingest/FeedParser.h"
#include "kit/TempFolder.h"

namespace feedloom {
namespace {

class Parsing : public testing::Test {
 protected:
  // "code format variants|channel title|link", then "; title|link|date|description|enclosure
  // type|podcast" for each item, and "; type|text|title|xmlUrl|htmlUrl|url|deeper feeds" for each
  // outline in a folder.
  std::string Read(const std::string& document) {
    FeedParser parser(codePage_, options_);
    const int code = parser.Parse(folder_.Write("feed.xml", document), stop_.get_token());
    const auto [rss, atom] = parser.Variants();
    std::string all = fmt::format("{} {} {} {}|{}|{}", code, static_cast<int>(parser.GetFormat()),
                                  rss, atom, parser.GetChannelTitle(), parser.GetChannelLink());
    for (const FeedItem& item : parser.Items()) {
      all += fmt::format("; {}|{}|{}|{}|{}|{}", item.title, item.link, item.date, item.description,
                         item.enclosureType, item.isPodcast);
    }
    for (const OpmlOutline& folder : parser.Outlines()) {
      all += "; " + folder.text;
      for (const auto& [title, url, text, type, xml, html, none, deeper] : folder.children) {
        all += fmt::format("; {}|{}|{}|{}|{}|{}|{}", type, text, title, xml, html, url, deeper);
      }
    }
    return all;
  }

  // `rows`: a document "~" what is read of it "~" a document ...
  void ExpectRead(const std::string& rows) {
    std::istringstream stream(rows);
    std::string read;
    for (std::string document; std::getline(stream, document, '~');) {
      EXPECT_EQ(Read(document), std::getline(stream, read, '~') ? read : "") << document;
    }
  }

  TempFolder folder_;
  CodePage codePage_ = CodePage::Utf8();
  ParseOptions options_;
  std::stop_source stop_;
};

TEST_F(Parsing, TellsTheFormatByRootAndVersion) {
  ExpectRead(
      "<rss version='2.0'/>~0 0 2 -1||~<rss version='2.01'/>~0 0 0 -1||~<rss version=''/>~"
      "0 0 0 -1||~<rss/>~-93 -1 -1 -1||~<rdf:RDF/>~0 0 1 -1||~<r:RDF xmlns:r='r'/>~-92 -1 -1 -1||~"
      "<feed/>~0 1 -1 10||~<feed version='0.3'/>~0 1 -1 3||~<feed version=''/>~-93 1 -1 -1||~"
      "<opml/>~0 2 -1 -1||~<RSS version='2.0'/>~-92 -1 -1 -1||~<rss version='2.0'>~-98 -1 -1 -1||~"
      "~-98 -1 -1 -1||");
}

TEST_F(Parsing, ReadsTheHeaderAndTheItemsOfEachFormat) {
  const std::string page = "<title>t</title><link>l</link>";
  const std::string media = page + "<enclosure url='m' type='audio/mpeg'/><enclosure url='2nd'/>";
  const std::string dates = page + "<dc:date>D</dc:date><pubDate>P</pubDate>";
  const std::string next = "</item><item>";
  ExpectRead(
      "<rss version='2.0'><image><title>Logo</title></image><title>Site</title>"
      "<link> http://site/ </link><item><media:title>other</media:title>"
      "<title> A <![CDATA[<b>]]>&amp;lt;<!-- no --> B</title><link>l</link>"
      "<description>&lt;p&gt;x&lt;/p&gt;<i>y</i></description></item></rss>~"
      "0 0 2 -1|Logo|http://site/; A <b>&lt; B|l||<p>x</p>y||0~"
      "<rss version='2.0'><item>" +
      media + next + dates + next + next + "<title> </title><link>l</link>" + next + page +
      "<enclosure type='x'/>" + next +
      "<title>t</title></item></rss>~0 0 2 -1|t|l; t|m|||audio/mpeg|1; t|l|P|||0~"
      "<rss version='0.9'><item>" +
      media + next + page +
      "<date>d</date><pubDate> </pubDate><dc:date>D</dc:date></item></rss>~"
      "0 0 0 -1|t|l; t|l||||0; t|l|D|||0~<rdf:RDF><item>" +
      dates + next + media +
      "<pubDate>P</pubDate></item></rdf:RDF>~0 0 1 -1|t|l; t|l|D|||0; t|l||||0~"
      "<feed><title>A</title><link href='http://self/'/><link href='http://b/'/><entry>"
      "<title>t</title><link rel='x' href='l'/><issued>I</issued><summary>s</summary></entry>"
      "<entry><title>2</title><link href='l2'/><updated>U</updated></entry>"
      "<entry><title>without a link</title></entry></feed>~"
      "0 1 -1 10|A|http://self/; t|l|I|||0; 2|l2||||0");
}

TEST_F(Parsing, TextsEndInTheModulesCodePage) {
  const std::string utf8 = "<feed><title>똠방각하 ♥ 😀 é</title></feed>~0 1 -1 10|";
  ExpectRead(utf8 + "똠방각하 ♥ 😀 é|");
  codePage_ = CodePage::Korean();
  const std::string korean = codePage_.FromUtf8("똠방각하 ♥");
  ExpectRead(utf8 + korean + " ? ?|~<?xml version='1.0' encoding='EUC-KR'?><feed><title>" + korean +
             "</title></feed>~0 1 -1 10|" + korean + "|");
}

TEST_F(Parsing, ReadsTwoLevelsOfOutlines) {
  const std::string list =
      "<opml><head><outline text='not of the body'/></head><body><outline text='Folder'>"
      "<outline type='rss' text='A &amp; B' title='T' xmlUrl=' http://x/č ' htmlUrl='h' url='u'>"
      "<outline text='too deep'><outline xmlUrl='u'/></outline></outline></outline></body>"
      "<outline text='without a body'/></opml>~0 2 -1 -1||";
  ExpectRead(list + "; without a body; Folder; rss|A & B|T|http://x/%C4%8D|h|u|1");
  options_.readsOutlines = false;
  ExpectRead(list);
}

TEST_F(Parsing, ReadsNoMoreAfterAStopOrOneOutlineTooMany) {
  std::string text = "<body><item/>";
  for (std::size_t i = 0; i <= kMostOutlines / 2; ++i) text += "<outline><outline/></outline>";
  for (const char* end : {"</body>", "<outline/></body>", " </body>"}) {
    std::vector<OpmlOutline> out;
    std::vector<FeedItem> items;
    XmlDocument document;
    (void)document.Load(folder_.Write("f.xml", text + end));
    const bool isStopped = end[0] == ' ' && stop_.request_stop();
    ReadOpmlOutlines(document.Root(), codePage_, stop_.get_token(), out);
    EXPECT_EQ(CountOutlines(out), isStopped ? 0 : kMostOutlines + 1);
    EXPECT_EQ(ReadFeedItems(document.Root(), {.rss = 2}, codePage_, stop_.get_token(), items),
              isStopped ? -1 : 0);
  }
  ExpectRead("<feed/>~-1 -1 -1 -1||");
}

}  // namespace
}  // namespace feedloom
