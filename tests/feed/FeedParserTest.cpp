// What is read of a feed: its document, and the dates in it.
#include <fmt/core.h>

#include <sstream>

#include "feed/FeedDate.h"
#include "feed/FeedParser.h"
#include "kit/ManualClock.h"
#include "kit/Rows.h"
#include "kit/TempFolder.h"

namespace feedloom {

struct Parsing : testing::Test {
  // "code format variants|channel title|link", and "; title|link|date|description|enclosure type|
  // podcast" for each item.
  std::string Read(const std::string& document) {
    FeedParser parser({codePage_, isLenient_});
    const int code = parser.Parse(folder_.Write("feed.xml", document));
    const auto [rss, atom] = parser.Variants();
    std::string all = fmt::format("{} {} {} {}|{}|{}", code, static_cast<int>(parser.GetFormat()),
                                  rss, atom, parser.GetChannelTitle(), parser.GetChannelLink());
    for (const FeedItem& item : parser.Items())
      all += fmt::format("; {}|{}|{}|{}|{}|{}", item.title, item.link, item.date, item.description,
                         item.enclosureType, item.isPodcast);
    return all;
  }

  void ExpectRead(std::initializer_list<std::string> rows) {
    ExpectRows([this](auto& document) { return Read(document); }, rows);
  }

  TempFolder folder_;
  CodePage codePage_ = CodePage::Utf8();
  bool isLenient_ = false;
};

TEST_F(Parsing, TellsTheFormatByRootAndVersion) {
  ExpectRead({"<rss version='2.01'/> -> 0 0 0 -1||", "<rss version=''/> -> 0 0 0 -1||",
              "<rss/> -> -93 -1 -1 -1||", "<r:RDF xmlns:r='r'/> -> -92 -1 -1 -1||",
              "<feed version=''/> -> -93 1 -1 -1||", "<feed version='0.3'/> -> 0 1 -1 3||",
              "<opml/> -> 0 2 -1 -1||", " -> -98 -1 -1 -1||",
              "<RSS version='2.0'/> -> -92 -1 -1 -1||", "<rss version='2.0'> -> -98 -1 -1 -1||"});
}

TEST_F(Parsing, ReadsTheHeaderAndTheItemsOfEachFormat) {
  const std::string page = "<title>t</title><link>l</link>", next = "</item><item>";
  const std::string media = page + "<enclosure url='m' type='audio/mpeg'/><enclosure url='2nd'/>";
  const std::string dates = page + "<dc:date>D</dc:date><pubDate>P</pubDate>";
  ExpectRead(
      {"<rss version='2.0'><image><title>Logo</title></image><title>Site</title>"
       "<link> http://site/ </link><item><media:title>other</media:title>"
       "<title> A <![CDATA[<b>]]>&amp;lt;<!-- no --> B</title><link>l</link>"
       "<description>&lt;p&gt;x&lt;/p&gt;<i>y</i></description></item></rss>"
       " -> 0 0 2 -1|Logo|http://site/; A <b>&lt; B|l||<p>x</p>y||0",
       "<rss version='2.0'><item>" + media + next + dates + next +
           "<title> </title><link>l</link>" + next + page + "<enclosure type='x'/>" + next +
           "<title>t</title></item></rss>" + " -> 0 0 2 -1|t|l; t|m|||audio/mpeg|1; t|l|P|||0",
       "<rss version='0.9'><item>" + media + next + page + "<date>d</date><pubDate> </pubDate>" +
           "<dc:date>D</dc:date></item></rss> -> 0 0 0 -1|t|l; t|l||||0; t|l|D|||0",
       "<rdf:RDF><item>" + dates + next + media + "<pubDate>P</pubDate></item></rdf:RDF>" +
           " -> 0 0 1 -1|t|l; t|l|D|||0; t|l||||0",
       "<feed><title>A</title><link href='http://self/'/><link href='http://b/'/><entry>"
       "<title>t</title><link rel='x' href='l'/><issued>I</issued><summary>s</summary></entry>"
       "<entry><title>2</title><link href='l2'/><updated>U</updated></entry>"
       "<entry><title>without a link</title></entry></feed>"
       " -> 0 1 -1 10|A|http://self/; t|l|I|||0; 2|l2||||0"});
}

TEST_F(Parsing, TextsEndInTheModulesCodePage) {
  const std::string utf8 = "<feed><title>똠방각하 ♥ 😀 é</title></feed> -> 0 1 -1 10|";
  ExpectRead({utf8 + "똠방각하 ♥ 😀 é|"});
  codePage_ = CodePage::Korean();
  ExpectRead({utf8 + codePage_.FromUtf8("똠방각하 ♥") + " ? ?|"});
}

TEST_F(Parsing, AHostMayAskForTitlesOfUntitledItemsAndForFaultyDocuments) {
  const auto titles = [this](const std::string& items) {
    FeedParser parser({codePage_, isLenient_});
    const int code = parser.Parse(folder_.Write("a.xml", "<rss version='2.0'>" + items + "</rss>"));
    std::string all = code == kParsed ? "" : std::to_string(code);
    for (const FeedItem& item : parser.Items()) all += item.title + "|";
    return all;
  };
  const auto item = [](const std::string& text) {
    return "<item><link>l</link><description><![CDATA[" + text + "]]></description></item>";
  };
  const std::string words = Repeated("word ", 15), letters = Repeated("가", 80);
  const std::string items = item("<p>Hi <b>y</b>ou&hellip;</p>") + item(words + "12345") +
                            item(words + "123456") + item(letters + "각") +
                            "<item><link>l</link><pubDate>d</pubDate></item>" +
                            "<item><description>no link</description></item>";
  EXPECT_EQ(titles(items) + titles("<a>&</a>"), "-98");
  isLenient_ = true;
  EXPECT_EQ(titles(items + "&"),
            "Hi you…|" + words + "12345|" + words.substr(0, 74) + "…|" + letters + "…|l|");
  codePage_ = CodePage::Korean();
  EXPECT_EQ(titles(item(letters + "각")), codePage_.FromUtf8(letters + "…|"));
}

// The stored forms of `dates`, which have bars between them; equal ones once.
static std::string Stored(const std::string& dates) {
  std::istringstream stream(dates);
  std::string stored;
  for (std::string date; std::getline(stream, date, '|');) {
    std::string one = date;
    NormalizeFeedDate(one);
    if (one != stored) stored += one;
  }
  return stored;
}

TEST_F(Parsing, TellsHowLongAFeedWishesNotToBeAskedAgain) {
  ExpectRows(
      [this](auto& channel) {
        FeedParser parser(codePage_);
        const std::string document =
            "<rss version='2.0'><channel>" + channel + "<item><ttl>9</ttl></item></channel></rss>";
        EXPECT_EQ(parser.Parse(folder_.Write("feed.xml", document)), kParsed);
        return std::to_string(parser.Period().count());
      },
      {" -> 0", "<ttl>60</ttl> -> 3600", "<ttl>-60</ttl> -> 0", "<ttl>99999999</ttl> -> 86400",
       "<ttl>x</ttl><sy:updatePeriod> hourly</sy:updatePeriod> -> 3600",
       "<ttl>300</ttl><sy:updatePeriod>daily</sy:updatePeriod>"
       "<sy:updateFrequency>4</sy:updateFrequency> -> 21600",
       "<sy:updateFrequency>2</sy:updateFrequency> -> 43200",
       "<sy:updatePeriod>hourly</sy:updatePeriod><sy:updateFrequency>-1</sy:updateFrequency> "
       "-> 3600",
       "<sy:updatePeriod>never</sy:updatePeriod> -> 0",
       "<sy:updatePeriod>yearly</sy:updatePeriod> -> 86400"});
}

TEST(FeedDate, IsReadAsFarAsItGoesAndMovedWhenTheMachinesZoneLeavesItOut) {
  setenv("TZ", "EST5EDT,M3.2.0,M11.1.0", 1);
  tzset();
  ExpectRows(
      Stored,
      {"  Tue,  9  June  2003  04:05:07  ut \n|2003-6-9T4:5:7 -> 2003-06-09 04:05:07",
       "Tue, 10 6 2003 04:00:00 Z|Tue, 10 Jun 2003 04:30|2003-06-10T04:30|2003-06-10 04:00:00.000Z"
       " -> 2003-06-10 04:00:00",
       "Tue, 10 Jun 2003 noon|2003-06-10|2003-06-10T04 -> 2003-06-10 00:00:00",
       "x 31 jAn. 1970 00:00:00 GMT+9 -> 1970-01-31 00:00:00",
       "Mon, 31 Jun 3000 04:00:00 GMT -> 3000-07-01 04:00:00",
       "Thu, 01 Jan 2004 01:00:00 MST -> 2003-12-31 18:00:00",
       "Thu, 1 Dec 99 04:00:00 GMT|1999-12-01T04:00:00Z -> 1999-12-01 04:00:00",
       "2008-03-09T02:30:00|2008-03-09T03:30:00 -> 2008-03-09 03:30:00",
       "2008-03-09T01:59:59 -> 2008-03-09 01:59:59", "2008-11-02T01:30:00 -> 2008-11-02 01:30:00",
       " \t|Tuesday|Tue, 10 Jun|Tue, 10 Jun 2003|Tue, 10 Jun 03 04:00:00 GMT|"
       "Tue, 10 Foo 2003 04:00:00 GMT|Tue, 32 Jun 2003 04:00:00 GMT|Tue, 0 Jun 2003 04:00:00 GMT|"
       "Tue, 10 Jun 3001 04:00:00 GMT|10 Jun 2003 04:00:00 GMT|2003|2003-06|2003-13-01|2003-00-01|"
       "2003-01-00|1969-12-31T23:00:00Z|2003-06-10T999999999:00:00Z|99999999999999999999-01-01"
       " -> "});
  unsetenv("TZ");
  tzset();
}

TEST(FeedDate, AddsTheOffsetAsItIsWritten) {
  std::istringstream words(
      "UT 10:00 Z 10:00 EST 05:00 PST 02:00 pdt 03:00 A 09:00 I 01:00 J 10:00 K 00:00 M 22:00 "
      "N 11:00 Y 22:00 @ 10:00 +0930 19:30 -0430 05:30 0930 10:00 TZ 10:00 Test 05:00 "
      "T-05:00 05:00 T+09:30 19:30 T+0900 10:20 T-0900 09:40");  // no colon: the century's minutes
  for (std::string zone, time; words >> zone >> time;) {
    const bool isIso = zone[0] == 'T';
    const std::string date = isIso ? "2003-06-10T10:00:00" : "Tue, 10 Jun 2003 10:00:00 ";
    EXPECT_EQ(Stored(date + zone.substr(isIso ? 1 : 0)).substr(11, 5), time) << zone;
  }
}

TEST(FeedDate, IsShownAsTimeTodayAndAsDateOtherwise) {
  const ManualClock clock(NoonOf(2008, 5, 1));
  ExpectRows([&](auto& stored) { return FormatPostDateForDisplay(stored, clock); },
             {"2008-05-01 09:30:01 -> 09:30:01", "2008-05-02 09:30:00 -> 2008-05-02",
              "2008-06-01 09:30:00 -> 2008-06-01", "2007-5-1 9:3:0 -> 2007-05-01", "2008-05-01 -> ",
              "2008-05-01 09:30 -> ", "1969-05-01 09:30:00 -> "});
}

}  // namespace feedloom
