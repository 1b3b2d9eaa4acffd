#pragma once

#include <string>
#include <string_view>

#include "feed/FeedItem.h"
#include "xml/XmlDom.h"

namespace feedloom {

// Reads texts of an XML document as a FeedReading, which must outlive the object, wants them. What
// is missing, a null element too, reads as an empty text. Pure; any thread.
class FeedTexts {
 public:
  explicit FeedTexts(const FeedReading& reading) : reading_(reading) {}
  explicit FeedTexts(FeedReading&&) = delete;

  std::string Text(const XmlElement& element) const;
  std::string Attribute(const XmlElement& element, std::string_view name) const;

  // Texts that are addresses: absolute ones for a lenient reading. The base is the attribute
  // "xml:base" of the element and of those around it (XML Base), then the document's own address.
  std::string Address(const XmlElement& element) const;
  std::string Address(const XmlElement& element, std::string_view attribute) const;

 private:
  std::string Absolute(const XmlElement& element, const std::string& address) const;

  const FeedReading& reading_;
};

}  // namespace feedloom
