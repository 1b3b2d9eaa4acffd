// Parses any bytes as a feed, by the letter and leniently. Whatever is parsed can be stored, and
// leniency takes nothing away.
#include <algorithm>

#include "feed/FeedParser.h"
#include "fuzz/FeedItemCheck.h"
#include "text/Text.h"
#include "xml/XmlMending.h"

namespace feedloom {
namespace {

void CheckParse(const FeedParser& parser, int code, CodePage codePage) {
  if (code < 0) return;
  Require(code == kParsed, "a parse ends with 0 or a negative code");
  Require(parser.GetFormat() != FeedFormat::Unknown, "a document that was read has a format");
  const bool isOfXml = parser.IsFeed() && parser.GetFormat() != FeedFormat::JsonFeed;
  Require(isOfXml != parser.Variants().NoneSet(), "a feed in XML is of one variant");
  Require(!parser.Variants().BothSet(), "no document is of two families");
  Require(parser.IsFeed() || parser.Items().empty(), "only feeds have items");
  RequireValid(parser.GetChannelTitle(), codePage, "the title is in the module's code page");
  RequireValid(parser.GetChannelLink(), codePage, "the link is in the module's code page");
  for (const FeedItem& item : parser.Items()) CheckItem(item, codePage);
}

// What a lenient reading makes up may hold white space, as an address may.
void CheckTexts(const FeedParser& strict) {
  for (const FeedItem& item : strict.Items()) {
    for (const std::string* text : {&item.title, &item.description}) {
      RequireEqual(*text, Trim(*text), "no white space stands around an element's text");
    }
  }
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
  const int code = strict.Parse(document.Path()),
            lenientCode = lenient.Parse(document.Path(), {}, "http://example.com/dir/feed");
  CheckParse(strict, code, codePage);
  CheckParse(lenient, lenientCode, codePage);
  Require(code != kParsed || lenientCode == kParsed, "leniency refuses nothing");
  CheckTexts(strict);
  if (code == kParsed) CheckNothingIsLost(strict, lenient);
  CheckMending(input.Rest());
}

}  // namespace feedloom
