#include "exchange/OpmlOutlines.h"

#include <algorithm>
#include <numeric>

#include "feed/ParseCode.h"
#include "feed/WebAddress.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr int kStrictLevels = 2;

class OutlineReader {
 public:
  OutlineReader(CodePage codePage, OpmlReading reading, const std::stop_token& stop,
                std::size_t count)
      : codePage_(codePage),
        isLenient_(reading == OpmlReading::Lenient),
        stop_(stop),
        count_(count) {}

  // The XML library limits the depth.
  void ReadBelow(const XmlElement& element, int level, std::vector<OpmlOutline>& out) {
    for (const XmlElement& child : element.Children("outline")) {
      if (count_ > kMaxOutlines || stop_.stop_requested()) return;
      out.push_back(Read(child));
      ++count_;
      if (isLenient_ || level < kStrictLevels) {
        ReadBelow(child, level + 1, out.back().children);
      } else {
        FindDeeperFeeds(child, out.back());
      }
    }
  }

 private:
  OpmlOutline Read(const XmlElement& element) const {
    const auto text = [&](const char* name) {
      return codePage_.FromUtf8(Attribute(element, name));
    };
    const auto address = [&](const char* name) {
      return EscapedAddress(Trim(Attribute(element, name)));
    };
    return {.title = text("title"),
            .url = address("url"),
            .text = text("text"),
            .type = text("type"),
            .xmlUrl = address("xmlUrl"),
            .htmlUrl = text("htmlUrl")};
  }

  std::string Attribute(const XmlElement& element, const char* name) const {
    auto value = element.Attribute(name);
    if (!value && isLenient_) value = element.AttributeInAnyCase(name);
    return std::move(value).value_or("");
  }

  void FindDeeperFeeds(const XmlElement& element, OpmlOutline& outline) const {
    for (const XmlElement& deeper : element.Descendants("outline")) {
      OpmlOutline feed = Read(deeper);
      if (FeedAddress(feed).empty()) continue;
      ++outline.deeperFeeds;
      if (outline.deeper.size() < kMostNamed) outline.deeper.push_back(std::move(feed));
    }
  }

  const CodePage codePage_;
  const bool isLenient_;
  const std::stop_token& stop_;
  std::size_t count_;
};

}  // namespace

std::optional<std::vector<OpmlOutline>> ReadOpml(const XmlElement& root, CodePage codePage,
                                                 OpmlReading reading, const std::stop_token& stop) {
  if (!root || !root.HasName("opml")) return std::nullopt;
  std::vector<OpmlOutline> outlines;
  ReadOpmlOutlines(root, codePage, reading, stop, outlines);
  for (const XmlElement& body : root.Children("body")) {
    ReadOpmlOutlines(body, codePage, reading, stop, outlines);
  }
  if (stop.stop_requested()) return std::nullopt;
  return outlines;
}

int ReadOpmlOutlines(const XmlElement& element, CodePage codePage, OpmlReading reading,
                     const std::stop_token& stop, std::vector<OpmlOutline>& out) {
  if (!element) return kNoOutlineElement;
  OutlineReader(codePage, reading, stop, CountOutlines(out)).ReadBelow(element, 1, out);
  return kParsed;
}

std::size_t CountOutlines(const std::vector<OpmlOutline>& outlines) {
  return std::accumulate(outlines.begin(), outlines.end(), outlines.size(),
                         [](std::size_t count, const OpmlOutline& outline) {
                           return count + CountOutlines(outline.children);
                         });
}

const std::string& FeedAddress(const OpmlOutline& outline) {
  static const std::string kNone;
  if (!outline.xmlUrl.empty()) return outline.xmlUrl;
  const bool isNoFeed = EqualsIgnoringAsciiCase(outline.type, "link") ||
                        EqualsIgnoringAsciiCase(outline.type, "include");
  return isNoFeed ? kNone : outline.url;
}

}  // namespace feedloom
