// The outlines of an OPML document: two levels, as folders and their channels.
#pragma once

#include <stop_token>
#include <string>
#include <vector>

#include "platform/CodePage.h"
#include "platform/XmlDom.h"

namespace feedloom {

// The attributes of one "outline" element; one that is missing is an empty text. In the code page
// that the reader was given.
struct OpmlOutline {
  std::string title;
  std::string url;
  std::string text;
  std::string type;
  std::string xmlUrl;  // in ASCII, as EscapedAddress makes it: no code page can harm it
  std::string htmlUrl;
  std::vector<OpmlOutline> children = {};  // of a top-level outline; deeper ones are not read
  int deeperFeeds = 0;  // of the second level: the outlines with an "xmlUrl" that lie below it
};

// Nobody has a longer list: the outlines behind these are not read, but for one more.
inline constexpr std::size_t kMostOutlines = 100'000;

// Appends the outlines directly below `element` and the outlines directly below those; none more
// from `stop` on. 0, or kNoOutlineElement when `element` is null. Pure; any thread.
int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, const std::stop_token& stop,
                     std::vector<OpmlOutline>& out);

// Those of both levels.
std::size_t CountOutlines(const std::vector<OpmlOutline>& outlines);

}  // namespace feedloom
