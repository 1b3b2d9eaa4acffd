// Parses any bytes as a feed, by the letter and leniently. Whatever is parsed can be stored, and
// leniency takes nothing away.
#include <algorithm>

#include "feed/FeedDate.h"
#include "feed/FeedParser.h"
#include "fuzz/FuzzKit.h"
#include "text/Text.h"
#include "xml/XmlMending.h"

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

void CheckParse(const FeedParser& parser, int code, CodePage codePage) {
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

// Each item of `strict` is one of `lenient`, in the same order and under the same title.
void CheckNothingIsLost(const FeedParser& strict, const FeedParser& lenient) {
  auto at = lenient.Items().begin();
  for (const FeedItem& item : strict.Items()) {
    at = std::find_if(at, lenient.Items().end(),
                      [&](auto& other) { return other.title == item.title; });
    Require(at++ != lenient.Items().end(), "what is read by the letter is read leniently");
  }
}

// Mended, no document holds a control character, or grows more than its characters can.
void CheckMending(std::string_view bytes) {
  constexpr std::size_t kLongest = 5;  // "&amp;"
  const std::string mended = MendedXml(bytes);
  Require(mended.size() <= kLongest * bytes.size(), "a mended document is not much longer");
  Require(std::ranges::none_of(mended,
                               [](char c) {
                                 return static_cast<unsigned char>(c) < ' ' && c != '\t' &&
                                        c != '\n' && c != '\r';
                               }),
          "a mended document has no control characters");
}

}  // namespace

void CheckInput(FuzzInput input) {
  const CodePage codePage = input.TakeCodePage();
  const MemoryFile document(input.Rest());
  FeedParser strict(codePage), lenient({codePage, true});
  const int code = strict.Parse(document.Path()), lenientCode = lenient.Parse(document.Path());
  CheckParse(strict, code, codePage);
  CheckParse(lenient, lenientCode, codePage);
  Require(code != kParsed || lenientCode == kParsed, "leniency refuses nothing");
  if (code == kParsed) CheckNothingIsLost(strict, lenient);
  CheckMending(input.Rest());
}

}  // namespace feedloom
