#include "exchange/OpmlOutlines.h"

#include <algorithm>

#include "feed/ParseCode.h"
#include "feed/WebAddress.h"
#include "text/Text.h"

namespace feedloom {
namespace {

OpmlOutline ReadOutline(const XmlElement& element, CodePage codePage) {
  const auto read = [&](const char* name) {
    return codePage.FromUtf8(element.Attribute(name).value_or(""));
  };
  return {.title = read("title"),
          .url = read("url"),
          .text = read("text"),
          .type = read("type"),
          .xmlUrl = EscapedAddress(Trim(element.Attribute("xmlUrl").value_or(""))),
          .htmlUrl = read("htmlUrl")};
}

int CountFeedsBelow(const XmlElement& outline) {
  return static_cast<int>(std::ranges::count_if(
      outline.Descendants("outline"),
      [](const XmlElement& deeper) { return !deeper.Attribute("xmlUrl").value_or("").empty(); }));
}

}  // namespace

std::optional<std::vector<OpmlOutline>> ReadOpml(const XmlElement& root, CodePage codePage,
                                                 const std::stop_token& stop) {
  if (!root || !root.HasName("opml")) return std::nullopt;
  std::vector<OpmlOutline> outlines;
  ReadOpmlOutlines(root, codePage, stop, outlines);
  for (const XmlElement& body : root.Children("body")) {
    ReadOpmlOutlines(body, codePage, stop, outlines);
  }
  if (stop.stop_requested()) return std::nullopt;
  return outlines;
}

int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, const std::stop_token& stop,
                     std::vector<OpmlOutline>& out) {
  if (!element) return kNoOutlineElement;
  std::size_t count = CountOutlines(out);
  const auto isEnough = [&] { return count > kMaxOutlines || stop.stop_requested(); };
  for (const XmlElement& child : element.Children("outline")) {
    if (isEnough()) break;
    OpmlOutline& outline = out.emplace_back(ReadOutline(child, codePage));
    ++count;
    for (const XmlElement& grandchild : child.Children("outline")) {
      if (isEnough()) break;
      outline.children.push_back(ReadOutline(grandchild, codePage));
      outline.children.back().deeperFeeds = CountFeedsBelow(grandchild);
      ++count;
    }
  }
  return kParsed;
}

std::size_t CountOutlines(const std::vector<OpmlOutline>& outlines) {
  std::size_t count = outlines.size();
  for (const OpmlOutline& outline : outlines) count += outline.children.size();
  return count;
}

}  // namespace feedloom
