#include "feed/FeedDocument.h"

#include <array>
#include <optional>

#include "feed/FeedCredits.h"
#include "feed/FeedExtensions.h"
#include "feed/FeedTexts.h"

namespace feedloom {
namespace {

ParseCode DetectAtom(const std::optional<std::string>& version, FeedVariants& variants) {
  if (version && *version != "0.3") return kVersionRefused;
  variants.atom = version ? FeedVariants::kAtom03 : FeedVariants::kAtom10;
  return kParsed;
}

enum RssField { kTitle, kLink, kDescription, kPubDate, kDcDate, kEnclosure, kRssFieldCount };
constexpr std::array<std::string_view, kRssFieldCount> kRssNames = {
    "title", "link", "description", "pubDate", "dc:date", "enclosure"};

using RssElements = std::array<XmlElement, kRssFieldCount>;

// Sets the link, and beside it how it is written when that is not the same. An empty `attribute`
// means the element's text.
void SetLink(const XmlElement& element, std::string_view attribute, const FeedTexts& texts,
             FeedItem& item) {
  std::string written =
      attribute.empty() ? texts.Text(element) : texts.Attribute(element, attribute);
  item.link = attribute.empty() ? texts.Address(element) : texts.Address(element, attribute);
  item.writtenLink = written == item.link ? "" : std::move(written);
}

ParseCode ReadRssDate(const RssElements& found, const FeedTexts& texts, FeedItem& item) {
  switch (item.variants.rss) {
    case FeedVariants::kRss09:
    case FeedVariants::kRss20:
      item.date = texts.Text(found[kPubDate]);
      if (item.date.empty()) item.date = texts.Text(found[kDcDate]);
      return kParsed;
    case FeedVariants::kRss10:
      item.date = texts.Text(found[kDcDate]);
      return kParsed;
    default:
      return kUnknownVariant;
  }
}

ParseCode ReadRssItem(const XmlElement& element, const FeedTexts& texts, FeedItem& item) {
  RssElements found;
  element.FirstDescendants(kRssNames, found);
  item.title = texts.Text(found[kTitle]);
  item.description = texts.Text(found[kDescription]);
  SetLink(found[kLink], "", texts, item);
  if (item.variants.rss == FeedVariants::kRss20 && found[kEnclosure]) {
    // The link of a podcast's post is its media file, even when the enclosure has no address.
    SetLink(found[kEnclosure], "url", texts, item);
    item.enclosureType = texts.Attribute(found[kEnclosure], "type");
    item.isPodcast = 1;
  }
  return ReadRssDate(found, texts, item);
}

void ReadAtomEntry(const XmlElement& element, const FeedTexts& texts, FeedItem& item) {
  constexpr std::array<std::string_view, 3> kNames = {"title", "link", "issued"};
  std::array<XmlElement, kNames.size()> found;
  element.FirstDescendants(kNames, found);
  item.title = texts.Text(found[0]);
  SetLink(found[1], "href", texts, item);
  item.date = texts.Text(found[2]);
}

ParseCode ReadItemList(const std::vector<XmlElement>& elements, const FeedVariants& variants,
                       const FeedReading& reading, const std::stop_token& stop,
                       std::vector<FeedItem>& items) {
  if (variants.NoneSet()) return kItemListContradiction;
  for (const XmlElement& element : elements) {
    if (stop.stop_requested()) return kParseStopped;
    FeedItem item;
    item.variants = variants;
    const ParseCode code = ReadFeedItem(element, reading, item);
    if (code == kItemIncomplete) continue;
    if (code < 0) return code;
    items.push_back(std::move(item));
  }
  return kParsed;
}

}  // namespace

ParseCode DetectFormat(const XmlElement& root, FeedFormat& format, FeedVariants& variants) {
  const std::optional<std::string> version = root.Attribute("version");
  if (root.HasName("rss")) {
    if (!version) return kVersionRefused;
    format = FeedFormat::Rss;
    variants.rss = *version == "2.0" ? FeedVariants::kRss20 : FeedVariants::kRss09;
    return kParsed;
  }
  if (root.HasName("rdf:RDF")) {
    format = FeedFormat::Rss;
    variants.rss = FeedVariants::kRss10;
    return kParsed;
  }
  if (root.HasName("feed")) {
    format = FeedFormat::Atom;
    return DetectAtom(version, variants);
  }
  if (root.HasName("opml")) {
    format = FeedFormat::Opml;
    return kParsed;
  }
  return kUnknownRoot;
}

ParseCode ReadFeedHeader(const XmlElement& root, const FeedReading& reading, FeedHeader& header) {
  if (header.variants.BothSet()) return kHeaderContradiction;
  constexpr std::array<std::string_view, 2> kNames = {"title", "link"};
  std::array<XmlElement, kNames.size()> found;
  root.FirstDescendants(kNames, found);
  const FeedTexts texts(reading);
  header.title = texts.Text(found[0]);
  header.link = header.variants.atom == FeedVariants::kNone ? texts.Address(found[1])
                                                            : texts.Address(found[1], "href");
  return kParsed;
}

ParseCode ReadFeedItems(const XmlElement& root, const FeedVariants& variants,
                        const FeedReading& reading, std::stop_token stop,
                        std::vector<FeedItem>& items) {
  if (variants.BothSet()) return kFormatContradiction;
  const bool isAtom = variants.atom != FeedVariants::kNone;
  return ReadItemList(root.Descendants(isAtom ? "entry" : "item"), variants, reading, stop, items);
}

ParseCode ReadFeedItem(const XmlElement& element, const FeedReading& reading, FeedItem& item) {
  if (item.variants.BothSet()) return kItemContradiction;
  const FeedTexts texts(reading);
  if (item.variants.atom != FeedVariants::kNone) {
    ReadAtomEntry(element, texts, item);
  } else if (const ParseCode code = ReadRssItem(element, texts, item); code < 0) {
    return code;
  }
  ReadCredits(element, reading, item);
  if (reading.isLenient) FillFromExtensions(element, reading, item);
  return CompleteItem(item, reading) ? kParsed : kItemIncomplete;
}

}  // namespace feedloom
