// Reads a feed's format, header and items from a loaded XML document. All functions are pure, so
// any thread may call them, and all return kParsed or a negative ParseCode. FeedParser.h calls them
// in order.
#pragma once

#include <stop_token>
#include <vector>

#include "feed/FeedItem.h"
#include "feed/ParseCode.h"
#include "xml/XmlDom.h"

namespace feedloom {

// Sets `format` and `variants` by the name and the "version" attribute of `root`.
ParseCode DetectFormat(const XmlElement& root, FeedFormat& format, FeedVariants& variants);

// Sets the texts of `header` to the first title and the first link anywhere below `root`, as
// header.variants demands. A missing text stays empty.
ParseCode ReadFeedHeader(const XmlElement& root, const FeedReading& reading, FeedHeader& header);

// Appends the items below `root` to `items` in document order. An item that is
// not complete (CompleteItem) is left out. Returns kParseStopped when `stop` was requested before
// the last item.
ParseCode ReadFeedItems(const XmlElement& root, const FeedVariants& variants,
                        const FeedReading& reading, std::stop_token stop,
                        std::vector<FeedItem>& items);

// Fills `item` from one "item" or "entry" element, as item.variants demands. Returns
// kItemIncomplete when it is not complete.
ParseCode ReadFeedItem(const XmlElement& element, const FeedReading& reading, FeedItem& item);

}  // namespace feedloom
