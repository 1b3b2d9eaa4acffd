// The results of a parse. A negative one is a failure. Its number is for diagnosis only:
// `feedloomctl check` prints it.
#pragma once

namespace feedloom {

enum ParseCode : int {
  kParsed = 0,
  kParseStopped = -1,         // the caller's stop was requested meanwhile
  kDocumentNotCreated = -99,  // out of memory
  kDocumentUnreadable = -98,  // the file cannot be read, or is not well-formed
  kNoDocumentElement = -97,
  kVersionRefused = -93,       // "rss" without a version, "feed" with another than "0.3"
  kFormatContradiction = -93,  // ReadFeedItems was given both variants
  kUnknownRoot = -92,
  kHeaderContradiction = -700,    // ReadFeedHeader was given both variants
  kItemListContradiction = -648,  // ReadFeedItems was given no variant
  kItemContradiction = -600,      // ReadFeedItem was given both variants
  kItemIncomplete = -599,         // no title or no link: the item is left out, the parse goes on
  kUnknownVariant = -150,         // an RSS variant without a rule for dates
  kNoOutlineElement = -499,       // the outline reader was given no element
};

}  // namespace feedloom
