// What a parse ended with. Callers only ask whether a code is negative; the exact one is for
// diagnosis. The gaps in the numbers belong to failures that our XML library reports as a whole
// (kDocumentUnreadable) or cannot have.
#pragma once

namespace feedloom {

enum ParseCode : int {
  kParsed = 0,
  kParseStopped = -1,         // the caller's stop was requested meanwhile
  kDocumentNotCreated = -99,  // out of memory
  kDocumentUnreadable = -98,  // the file cannot be read, or is not well-formed
  kNoDocumentElement = -97,
  kVersionRefused = -93,       // "rss" without a version, "feed" with another than "0.3"
  kFormatContradiction = -93,  // both variants set when the items are read
  kUnknownRoot = -92,
  kHeaderContradiction = -700,    // both variants set when the header is read
  kItemListContradiction = -648,  // no variant set when the items are read
  kItemContradiction = -600,      // both variants set when one item is read
  kItemIncomplete = -599,         // no title or no link: the item is left out, the parse goes on
  kUnknownVariant = -150,         // an RSS variant without a rule for dates
  kNoOutlineElement = -499,       // the outline reader was given no element
};

}  // namespace feedloom
