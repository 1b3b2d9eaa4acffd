// Reads a feed's format, header and items from a loaded XML document. All functions are pure, so
// any thread may call them, and all return kParsed or a negative ParseCode. FeedParser.h calls them
// in order.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "feed/ParseCode.h"
#include "text/CodePage.h"
#include "xml/XmlDom.h"

namespace feedloom {

enum class FeedFormat : int { Unknown = -1, Rss = 0, Atom = 1, Opml = 2 };

// The version of RSS or Atom that a document is written in. At most one of the two is set.
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

// Texts here and below are in the `codePage` of the function that read them.
struct FeedHeader {
  FeedVariants variants;
  std::string title;
  std::string link;
};

struct FeedItem {
  std::string title;
  std::string link;   // the address of the page, or of an enclosure's media file
  std::string date;   // as the document writes it
  int isPodcast = 0;  // 1 when the item has an enclosure
  std::string enclosureType;
  std::string description;
  FeedVariants variants;
};

// Sets `format` and `variants` by the name and the "version" attribute of `root`.
ParseCode DetectFormat(const XmlElement& root, FeedFormat& format, FeedVariants& variants);

// Sets the texts of `header` to the first title and the first link anywhere below `root`, as
// header.variants demands. A missing text stays empty.
ParseCode ReadFeedHeader(const XmlElement& root, CodePage codePage, FeedHeader& header);

// Appends the items below `root` to `items` in document order. An item without a title or a link
// is left out. Returns kParseStopped when `stop` was requested before the last item.
ParseCode ReadFeedItems(const XmlElement& root, const FeedVariants& variants, CodePage codePage,
                        std::stop_token stop, std::vector<FeedItem>& items);

// Fills `item` from one "item" or "entry" element, as item.variants demands. Returns
// kItemIncomplete when the title or the link is empty.
ParseCode ReadFeedItem(const XmlElement& element, CodePage codePage, FeedItem& item);

}  // namespace feedloom
