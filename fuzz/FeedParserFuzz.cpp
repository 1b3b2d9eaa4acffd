// Parses any bytes as a feed. Whatever is parsed can be stored.
#include "feed/FeedDate.h"
#include "feed/FeedParser.h"
#include "fuzz/FuzzKit.h"
#include "text/Text.h"

namespace feedloom {
namespace {

void CheckItem(const FeedItem& item, CodePage codePage) {
  Require(!item.title.empty() && !item.link.empty(), "an item has a title and a link");
  for (const std::string* text :
       {&item.title, &item.link, &item.date, &item.enclosureType, &item.description}) {
    RequireValid(*text, codePage, "an item's text is one of the module's code page");
    Require(text->find('\0') == std::string::npos, "no text ends before its end");
  }
  for (const std::string* text : {&item.title, &item.description}) {
    RequireEqual(*text, Trim(*text), "no white space stands around an element's text");
  }
  std::string date = item.date;
  NormalizeFeedDate(date);
  Require(date.empty() || date.size() == 19, "a date is stored in the one form or not at all");
  Require(item.isPodcast == 1 || item.enclosureType.empty(), "only a podcast has a media type");
}

}  // namespace

void CheckInput(FuzzInput input) {
  const CodePage codePage = input.TakeCodePage();
  const MemoryFile document(input.Rest());
  FeedParser parser(codePage);
  const int code = parser.Parse(document.Path());
  if (code < 0) return;
  Require(code == kParsed, "a parse ends with 0 or a negative code");
  Require(parser.GetFormat() != FeedFormat::Unknown, "a document that was read has a format");
  Require(parser.IsFeed() != parser.Variants().NoneSet(), "a feed is of one variant");
  Require(!parser.Variants().BothSet(), "no document is of two families");
  Require(parser.IsFeed() || parser.Items().empty(), "only feeds have items");
  RequireValid(parser.GetChannelTitle(), codePage, "the title is in the module's code page");
  RequireValid(parser.GetChannelLink(), codePage, "the link is in the module's code page");
  for (const FeedItem& item : parser.Items()) CheckItem(item, codePage);
}

}  // namespace feedloom
