#include "feed/FeedTexts.h"

#include "feed/FeedAddress.h"

namespace feedloom {

std::string FeedTexts::Text(const XmlElement& element) const {
  return element ? reading_.codePage.FromUtf8(element.Text()) : std::string();
}

std::string FeedTexts::Attribute(const XmlElement& element, std::string_view name) const {
  return element ? reading_.codePage.FromUtf8(element.Attribute(name).value_or("")) : std::string();
}

std::string FeedTexts::Address(const XmlElement& element) const {
  return element ? Absolute(element, element.Text()) : std::string();
}

std::string FeedTexts::Address(const XmlElement& element, std::string_view attribute) const {
  return element ? Absolute(element, element.Attribute(attribute).value_or("")) : std::string();
}

std::string FeedTexts::Absolute(const XmlElement& element, const std::string& address) const {
  if (!reading_.isLenient || HasScheme(address)) return reading_.codePage.FromUtf8(address);
  std::string base = reading_.address;
  for (const std::string& step : element.InheritedAttribute("xml:base")) {
    base = base.empty() ? step : AbsoluteAddress(base, step);
  }
  return reading_.codePage.FromUtf8(AbsoluteAddress(base, address));
}

}  // namespace feedloom
