#include "feed/OwnAddress.h"

#include "feed/FeedDocument.h"

namespace feedloom {
namespace {

// Prefixes of Atom's namespace that RSS documents use; Atom itself has none.
constexpr const char* kLinkNames[] = {"link", "atom:link", "atom10:link", "a10:link"};

std::string SelfLink(const XmlElement& head) {
  for (const char* const name : kLinkNames)
    for (const XmlElement& link : head.Children(name))
      if (link.Attribute("rel") == "self") return link.Attribute("href").value_or("");
  return {};
}

// A link without "rel" leads to the home page, in Atom by its "href" and in RSS by its text.
std::string HomePage(const XmlElement& head) {
  for (const XmlElement& link : head.Children("link"))
    if (link.Attribute("rel").value_or("alternate") == "alternate")
      return link.Attribute("href").value_or(link.Text());
  return {};
}

}  // namespace

std::string OwnAddress(const XmlElement& root) {
  FeedFormat format = FeedFormat::Unknown;
  FeedVariants variants;
  if (DetectFormat(root, format, variants) != kParsed || format == FeedFormat::Opml) return {};
  const XmlElement head = format == FeedFormat::Atom ? root : root.FirstDescendant("channel");
  if (!head) return {};
  const std::string self = SelfLink(head);
  return self.empty() ? HomePage(head) : self;
}

}  // namespace feedloom
