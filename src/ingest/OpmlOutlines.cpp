#include "ingest/OpmlOutlines.h"

#include "ingest/ParseCode.h"

namespace feedloom {
namespace {

OpmlOutline ReadOutline(const XmlElement& element, CodePage codePage) {
  const auto read = [&](const char* name) {
    return codePage.FromUtf8(element.Attribute(name).value_or(""));
  };
  return {read("title"),   read("url"), read("text"), read("type"), read("xmlUrl"),
          read("htmlUrl"), {}};
}

}  // namespace

int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, std::vector<OpmlOutline>& out) {
  if (!element) return kNoOutlineElement;
  for (const XmlElement& child : element.Children("outline")) {
    OpmlOutline& outline = out.emplace_back(ReadOutline(child, codePage));
    for (const XmlElement& grandchild : child.Children("outline")) {
      outline.children.push_back(ReadOutline(grandchild, codePage));
    }
  }
  return kParsed;
}

}  // namespace feedloom
