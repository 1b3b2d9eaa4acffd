// Reads the first two levels of an OPML document's outlines: folders, and the channels in them.
#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "text/CodePage.h"
#include "xml/XmlDom.h"

namespace feedloom {

// The attributes of one "outline" element, in the code page that ReadOpmlOutlines was given. A
// missing attribute is an empty text.
struct OpmlOutline {
  std::string title;
  std::string url;
  std::string text;
  std::string type;
  std::string xmlUrl;  // trimmed, and escaped by EscapedAddress
  std::string htmlUrl;
  std::vector<OpmlOutline> children = {};  // of an outline of the first level
  int deeperFeeds = 0;  // how many feeds, which are not read, lie below one of the second level
};

// The most outlines of both levels that a list may have. Of a longer list one more is read, by
// which the caller knows it.
inline constexpr std::size_t kMaxOutlines = 100'000;

// Returns the outlines in each "body" of an OPML document, and before them those directly below its
// `root`, because some lists have no "body". nullopt when `root` is null or no OPML, or when `stop`
// is requested. Any thread may call it.
std::optional<std::vector<OpmlOutline>> ReadOpml(const XmlElement& root, CodePage codePage,
                                                 const std::stop_token& stop);

// Appends the outlines directly below `element`, with those directly below them, to `out`, until
// `stop` is requested. Returns kParsed, or kNoOutlineElement when `element` is null. Any thread may
// call it.
int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, const std::stop_token& stop,
                     std::vector<OpmlOutline>& out);

// Returns the number of outlines of both levels.
std::size_t CountOutlines(const std::vector<OpmlOutline>& outlines);

}  // namespace feedloom
