#include "ingest/OpmlOutlines.h"

#include <algorithm>

#include "ingest/FeedAddress.h"
#include "ingest/ParseCode.h"
#include "platform/Text.h"

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

int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, std::vector<OpmlOutline>& out) {
  if (!element) return kNoOutlineElement;
  for (const XmlElement& child : element.Children("outline")) {
    OpmlOutline& outline = out.emplace_back(ReadOutline(child, codePage));
    for (const XmlElement& grandchild : child.Children("outline")) {
      outline.children.push_back(ReadOutline(grandchild, codePage));
      outline.children.back().deeperFeeds = CountFeedsBelow(grandchild);
    }
  }
  return kParsed;
}

}  // namespace feedloom
