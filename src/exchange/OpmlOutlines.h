// Reads an OPML document's outlines: folders, and the channels in them.
#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "text/CodePage.h"
#include "xml/XmlDom.h"

namespace feedloom {

// How many entries that are left out, or cannot be exported, the user is told by name.
inline constexpr std::size_t kMostNamed = 10;

// The attributes of one "outline" element, in the code page that ReadOpmlOutlines was given. A
// missing attribute is an empty text.
struct OpmlOutline {
  std::string title;
  std::string url;  // trimmed, and escaped by EscapedAddress, as xmlUrl
  std::string text;
  std::string type;
  std::string xmlUrl;
  std::string htmlUrl;
  std::vector<OpmlOutline> children = {};
  // The feeds below an outline of the last level that is read: their number, and the first
  // kMostNamed of them without their children.
  int deeperFeeds = 0;
  std::vector<OpmlOutline> deeper = {};
};

// The most outlines that a list may have. Of a longer list one more is read, by which the caller
// knows it.
inline constexpr std::size_t kMaxOutlines = 100'000;

// Enough memory for the document of as many outlines, with attributes of usual length.
inline constexpr std::size_t kMostListMemory = 256u << 20;  // bytes

// How a list is read. Strict: outlines of two levels, and attributes with the names that OPML 2.0
// gives them. Lenient: outlines of all levels, and names of attributes in any case.
enum class OpmlReading { Strict, Lenient };

// Returns the outlines in each "body" of an OPML document, and before them those directly below its
// `root`, because some lists have no "body". nullopt when `root` is null or no OPML, or when `stop`
// is requested. Any thread may call it.
std::optional<std::vector<OpmlOutline>> ReadOpml(const XmlElement& root, CodePage codePage,
                                                 OpmlReading reading, const std::stop_token& stop);

// Appends the outlines directly below `element`, with those below them, to `out`, until `stop` is
// requested. Returns kParsed, or kNoOutlineElement when `element` is null. Any thread may call it.
int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, OpmlReading reading,
                     const std::stop_token& stop, std::vector<OpmlOutline>& out);

// Returns the number of outlines of all levels.
std::size_t CountOutlines(const std::vector<OpmlOutline>& outlines);

// Returns the address of the outline's feed: its "xmlUrl", or else its "url" unless its "type" says
// that this leads to a web page or to another list (OPML 2.0: "link", "include"). Empty without
// one. Pure; any thread.
const std::string& FeedAddress(const OpmlOutline& outline);

}  // namespace feedloom
