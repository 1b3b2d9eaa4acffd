// What is read of an item beyond its own format's elements: JSON Feed, extensions, relative
// addresses, authors and categories.
#include <fmt/format.h>

#include "feed/FeedAddress.h"
#include "feed/FeedParser.h"
#include "feed/OwnAddress.h"
#include "kit/Rows.h"
#include "kit/TempFolder.h"
#include "text/Text.h"

namespace feedloom {

struct Items : testing::Test {
  int Parse(FeedParser& parser, const std::string& document) {
    return parser.Parse(folder_.Write("feed", document), {}, "http://s/dir/feed?x");
  }
  // "title|link|date|podcast type|description" of each item, with "; " between them.
  std::string Read(const std::string& document, bool isLenient = true) {
    FeedParser parser({CodePage::Utf8(), isLenient});
    const int code = Parse(parser, document);
    std::string all = code < 0 ? fmt::format("{}", code) : "";
    for (const FeedItem& item : parser.Items())
      all += fmt::format("{}{}|{}|{}|{}{}|{}", all.empty() ? "" : "; ", item.title, item.link,
                         item.date, item.isPodcast == 1 ? "podcast " : "", item.enclosureType,
                         item.description);
    return all;
  }
  // An RSS item with a title; and an Atom entry with a title and a link.
  std::string Rss(const std::string& more, bool isLenient = true) {
    return Read("<rss version='2.0'><item><title>t</title>" + more + "</item></rss>", isLenient);
  }
  std::string Atom(const std::string& more, bool isLenient = true) {
    return Read("<feed><entry><title>t</title><link href='l:'/>" + more + "</entry></feed>",
                isLenient);
  }
  std::string Json(const std::string& items, const std::string& version = "1.1") {
    return Read(" {\"version\":\"https://jsonfeed.org/version/" + version + "\",\"items\":[" +
                items + "]}");
  }

  TempFolder folder_;
};

TEST_F(Items, OfJsonFeedsAreReadForAHostThatWantsThem) {
  const std::string feed =
      "\xEF\xBB\xBF {\"items\":[{\"id\":\"1\",\"url\":\"l\",\"title\":\"&\"}],\"version\":"
      "\"https://jsonfeed.org/version/1\",\"title\":\"내 글\",\"home_page_url\":\"/home\"}";
  FeedParser parser({CodePage::Korean(), true});
  EXPECT_EQ(Parse(parser, feed), kParsed);
  EXPECT_EQ(parser.GetFormat(), FeedFormat::JsonFeed);
  EXPECT_EQ(parser.GetChannelTitle(), CodePage::Korean().FromUtf8("내 글"));
  EXPECT_EQ(parser.GetChannelLink(), "http://s/home");
  EXPECT_EQ(Read(feed), "&|http://s/dir/l|||");
  EXPECT_EQ(Read(feed, false), "-98");
}

TEST_F(Items, OfJsonFeedsHaveTheirTextsFromTheFirstFieldThatHasOne) {
  const std::string title = "{\"title\":\"t\",\"url\":\"u:\",";
  ExpectRows(
      [&](auto& fields) { return Json(title + fields + "}"); },
      {R"("content_html":"<b>&lt;","content_text":"no","date_published":"D","date_modified":"M" -> )"
       "t|u:|D||<b>&#x3C;",
       R"("content_text":"<\n\u00e9\u0000","summary":"no","date_modified":"M" -> )"
       "t|u:|M||&#x3C;<br>\né",
       R"("summary":"s","image":"/i.png?a&b","banner_image":"no" -> )"
       "t|u:|||<p><img src=\"http://s/i.png?a&#x26;b\"></p>s",
       R"("content_html":"<IMG src=x>","image":"/i.png" -> t|u:|||<IMG src=x>)",
       R"("attachments":[{"url":"i","mime_type":"image/png"},{"mime_type":"audio/x","url":"a"},)"
       R"({"url":"b","mime_type":"audio/y"}] -> t|http://s/dir/a||podcast audio/x|)",
       R"("_x":{"title":"no","items":[{"title":"no"}]},"summary":1.5 -> t|u:|||1.5)"});
  EXPECT_EQ(Json(R"({"id":"tag:x","title":"a"},{"id":7,"title":"b","external_url":"../e"},)"
                 R"({"id":"8","title":"no link"})"),
            "a|tag:x|||; b|http://s/e|||");
}

TEST_F(Items, OfADocumentThatIsNoJsonFeedOrTooMuchAreRefused) {
  const std::string one = R"({"title":"a","url":"u:"})";
  EXPECT_EQ(Json(one, "2"), "-92; a|u:|||");
  EXPECT_EQ(Read("{}"), "-92");
  EXPECT_EQ(Json(one + ","), "-98; a|u:|||");
  EXPECT_EQ(Json("{\"title\":\"a\xFF\",\"url\":\"u:\"}"), "a?|u:|||");
  EXPECT_EQ(Json(Repeated("[", 100'000)), "-98");
  std::stop_source stop;
  int asked = 0;
  const XmlLimits limits{.most = 4000, .atOnce = 2000, .askForMore = [&] { return ++asked == 1; }};
  const auto parse = [&](int items) {
    FeedParser parser({CodePage::Utf8(), true}, limits);
    const std::string list = Repeated(one + ",", static_cast<std::size_t>(items)) + one;
    return parser.Parse(folder_.Write("feed",
                                      "{\"version\":\"https://jsonfeed.org/version/1\","
                                      "\"items\":[" +
                                          list + "]}"),
                        stop.get_token());
  };
  EXPECT_EQ(parse(1), kParsed);
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(parse(3), kParsed);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(parse(3), kDocumentUnreadable) << "no more is allowed";
  EXPECT_EQ(parse(100), kDocumentUnreadable);
  EXPECT_EQ(asked, 2) << "too large in any case";
  stop.request_stop();
  EXPECT_EQ(parse(1), kParseStopped);
}

TEST_F(Items, TakeFromExtensionsWhatTheyLack) {
  const std::string encoded = "<content:encoded>&lt;b>&amp;lt;</content:encoded>";
  const std::string picture =
      "<media:group><media:content medium='audio' url='no'/>"
      "<media:content type='image/png' url='/&quot;&amp;quot;'/></media:group>";
  const std::string shown = "<p><img src=\"http://s/&#x22;&#x26;quot;\"></p>";
  ExpectRows(
      [&](auto& more) { return Rss("<link>l:</link>" + more); },
      {encoded + " -> t|l:|||<b>&#x3C;", "<description>d</description>" + encoded + " -> t|l:|||d",
       "<media:description>a&lt;</media:description> -> t|l:|||a&#x3C;",
       "<media:description type='html'>a&lt;</media:description> -> t|l:|||a<",
       "<itunes:summary>a</itunes:summary>" + picture + " -> t|l:|||" + shown + "a",
       "<description>&lt;ImG></description>" + picture + " -> t|l:|||<ImG>",
       "<media:thumbnail url='javascript:x'/> -> t|l:|||"});
  ExpectRows([&](auto& more) { return Rss(more); },
             {"<guid isPermaLink='false'>urn:x</guid> -> t|urn:x|||", "<guid>17</guid> -> ",
              "<link>l:</link><enclosure type='audio/x'/> -> t|l:|||",
              "<guid>g:</guid><media:content medium='video' url='v' type='video/x'/>"
              " -> t|http://s/dir/v||podcast video/x|",
              "<link>l:</link><published>P</published> -> t|l:|P||"});
  ExpectRows([&](auto& more) { return Atom(more); },
             {"<updated>U</updated><published>P</published><summary>a&lt;</summary>"
              " -> t|l:|P||a&#x3C;",
              "<content type='html'>&lt;b></content><summary>s</summary> -> t|l:|||<b>",
              "<content src='x'/><summary>s</summary> -> t|l:|||s",
              "<content type='image/png'>AA</content> -> t|l:|||",
              "<content type='xhtml'><div>a&lt;<br/><a name='n'/></div></content>"
              " -> t|l:|||<div>a&#x3C;<br><a name=\"n\"></a></div>"});
  EXPECT_EQ(Rss("<link>l:</link>" + encoded + picture, false), "t|l:|||");
  EXPECT_EQ(Atom("<summary>s</summary><updated>U</updated>", false), "t|l:|||");
}

TEST_F(Items, HaveAbsoluteAddressesForAHostThatWantsThem) {
  const auto link = [](const std::string& attributes, const std::string& address) {
    return "<rss version='2.0'" + attributes +
           "><channel xml:base='c/'><item><title>t</title><link>" + address +
           "</link></item></channel></rss>";
  };
  EXPECT_EQ(Read(link("", " a b/내 ")), "t|http://s/dir/c/a%20b/%eb%82%b4|||");
  EXPECT_EQ(Read(link(" xml:base='https://o/x/y'", "../a")), "t|https://o/x/a|||");
  EXPECT_EQ(Read(link("", "../a"), false), "t|../a|||");
  ExpectRows(
      [](auto& address) { return AbsoluteAddress("http://s/d/f?q#p", address); },
      {"//o/x -> http://o/x", "?n -> http://s/d/f?n", "#n -> http://s/d/f?q#n",
       "HTTP://A b -> HTTP://A b", "data:x,y -> data:x,y", "tag:s,2003:1 -> tag:s,2003:1", " -> "});
  EXPECT_EQ(AbsoluteAddress("", "a"), "a");
}

TEST_F(Items, TellTheirAuthorsAndCategories) {
  const auto credits = [&](const std::string& document) {
    FeedParser parser({CodePage::Utf8(), true});
    EXPECT_EQ(Parse(parser, document), kParsed);
    const FeedItem& item = parser.Items().at(0);
    return ReplaceAll(item.authors + "|" + item.categories, "\n", ",");
  };
  const std::string many = Repeated("<category>x</category>", 30),
                    rss =
                        "<rss version='2.0'><item>"
                        "<title>t</title><link>l:</link>",
                    end = "</item></rss>";
  EXPECT_EQ(credits(rss +
                    "<dc:creator>A</dc:creator><dc:creator> B\nC </dc:creator><author>no</author>"
                    "<category>c</category><dc:subject>d</dc:subject>" +
                    many + end),
            "A,B C|c,x,d");
  EXPECT_EQ(credits(rss +
                    "<author>a@b (A (1))</author><source><author>no</author></source>"
                    "<category>" +
                    std::string(201, 'x') + "</category>" + end),
            "A (1)|");
  EXPECT_EQ(credits(rss + "<author>me@(home</author><itunes:author>no</itunes:author>" + end),
            "me@(home|");
  EXPECT_EQ(
      credits("<feed><entry><title>t</title><link href='l:'/><author><name>A</name><uri>u"
              "</uri></author><category term='a' label='L'/><category term='b'/></entry></feed>"),
      "A|L,b");
  EXPECT_EQ(credits(R"({"version":"https://jsonfeed.org/version/1.1","items":[{"title":"t",)"
                    R"("url":"u:","authors":[{"name":"A"},{"url":"x"},{"name":"B"}],)"
                    R"("author":{"name":"A"},"tags":["a","b"]}]})"),
            "A,B|a,b");
}

TEST_F(Items, LeaveAFeedItsOwnAddressOrItsHomePage) {
  const std::pair<const char*, const char*> documents[] = {
      {"<feed><entry><link rel='self' href='e'/></entry><link href='h'/><link rel='self' "
       "href='s'/></feed>",
       "s"},
      {"<feed><link rel='edit' href='x'/><link rel='alternate' href='h'/></feed>", "h"},
      {"<rss version='2.0'><channel><link>h</link><atom:link href='s' rel='self'/></channel></rss>",
       "s"},
      {"<rss version='2.0'><channel><item><link>i</link></item><link> h </link></channel></rss>",
       "h"},
      {"<rdf:RDF><channel><link>h</link></channel><item><link>i</link></item></rdf:RDF>", "h"},
      {"<rss version='2.0'/>", ""},
      {"<opml><channel><link>h</link></channel></opml>", ""},
      {"<html><link rel='self' href='s'/></html>", ""}};
  for (const auto& [text, address] : documents) {
    XmlDocument document;
    ASSERT_EQ(document.Load(folder_.Write("feed", text)), XmlDocument::LoadStatus::Loaded);
    EXPECT_EQ(OwnAddress(document.Root()), address) << text;
  }
}

}  // namespace feedloom
