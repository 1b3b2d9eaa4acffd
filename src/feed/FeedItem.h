// What a feed says, as plain values, and how it is read. Texts are in the module's code page.
#pragma once

#include <string>

#include "text/CodePage.h"

namespace feedloom {

enum class FeedFormat : int { Unknown = -1, Rss = 0, Atom = 1, Opml = 2, JsonFeed = 3 };

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
  std::string writtenLink = {};  // as the document writes it, when `link` was made absolute
  std::string authors = {};      // one a line
  std::string categories = {};   // one a line
};

// How a document is read.
struct FeedReading {
  // Implicit: a code page alone means the reading of a host that asks for nothing.
  FeedReading(CodePage page, bool lenient = false) : codePage(page), isLenient(lenient) {}

  CodePage codePage;         // of the texts that are read
  bool isLenient;            // HostConfig::ReadsLeniently
  std::string address = {};  // the document's own, in UTF-8, or empty
};

// Whether `item` can be stored: it has a title and a link. What is done for an item that lacks one
// is decided here, for all formats. Pure; any thread.
bool CompleteItem(FeedItem& item, const FeedReading& reading);

}  // namespace feedloom
