// The rules by which a loaded XML document is a feed: what format it has, and what its header and
// its items say. Everything here is a pure function of a document; FeedParser.h runs them in order.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "ingest/ParseCode.h"
#include "platform/CodePage.h"
#include "platform/XmlDom.h"

namespace feedloom {

enum class FeedFormat : int { Unknown = -1, Rss = 0, Atom = 1, Opml = 2 };

// Which member of a family a document is; at most one of the two is set.
struct FeedVariants {
  static constexpr int kNone = -1;
  static constexpr int kRss09 = 0;  // any version of RSS but "2.0"
  static constexpr int kRss10 = 1;  // RDF
  static constexpr int kRss20 = 2;
  static constexpr int kAtom03 = 3;
  static constexpr int kAtom10 = 10;

  int rss = kNone;
  int atom = kNone;

  bool BothSet() const { return rss != kNone && atom != kNone; }
  bool NoneSet() const { return rss == kNone && atom == kNone; }
};

// Texts here and below are in the code page that the reading function was given.
struct FeedHeader {
  FeedVariants variants;
  std::string title;
  std::string link;
};

struct FeedItem {
  std::string title;
  std::string link;   // the page, or the media file of an enclosure
  std::string date;   // as the document writes it
  int isPodcast = 0;  // 1: an enclosure was read
  std::string enclosureType;
  std::string description;
  FeedVariants variants;
};

// Sets `format` and `variants` by the root element's name and "version".
ParseCode DetectFormat(const XmlElement& root, FeedFormat& format, FeedVariants& variants);

// Fills `header`'s texts by its variants: the first title and link anywhere below `root`. What is
// missing stays empty.
ParseCode ReadFeedHeader(const XmlElement& root, CodePage codePage, FeedHeader& header);

// Appends the items below `root` in document order; those without a title or a link are left out.
ParseCode ReadFeedItems(const XmlElement& root, const FeedVariants& variants, CodePage codePage,
                        std::stop_token stop, std::vector<FeedItem>& items);

// Fills `item` by its variants from one "item" or "entry" element.
ParseCode ReadFeedItem(const XmlElement& element, CodePage codePage, FeedItem& item);

}  // namespace feedloom
