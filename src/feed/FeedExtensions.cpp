#include "feed/FeedExtensions.h"

#include "feed/FeedAddress.h"
#include "feed/FeedMarkup.h"
#include "feed/FeedTexts.h"
#include "feed/WebAddress.h"
#include "text/Text.h"

namespace feedloom {
namespace {

bool IsAudioOrVideo(const XmlElement& media) {
  for (const std::string_view name : {"type", "medium"}) {
    const std::string kind = media.Attribute(name).value_or("");
    if (kind.starts_with("audio") || kind.starts_with("video")) return true;
  }
  return false;
}

bool IsImage(const XmlElement& media) {
  return media.Attribute("medium").value_or("") == "image" ||
         media.Attribute("type").value_or("").starts_with("image/");
}

struct Enclosure {
  std::string_view element;
  std::string_view address;  // the attribute
};

// The first file to listen to or to watch becomes the item's link.
void TakeEnclosure(const XmlElement& element, const FeedTexts& texts, FeedItem& item) {
  for (const auto& [name, address] :
       {Enclosure{"enclosure", "url"}, {"media:content", "url"}, {"link", "href"}}) {
    for (const XmlElement& media : element.Descendants(name)) {
      if (!item.link.empty() || !IsAudioOrVideo(media)) continue;
      item.link = texts.Address(media, address);
      item.enclosureType = texts.Attribute(media, "type");
      item.isPodcast = 1;
    }
  }
}

// An identifier is a link as long as it is an address, of any scheme.
void TakeLink(const XmlElement& element, const FeedTexts& texts, FeedItem& item) {
  if (item.link.empty()) TakeEnclosure(element, texts, item);
  if (!item.link.empty()) return;
  for (const std::string& address :
       {texts.Address(element.FirstDescendant("link")), texts.Text(element.FirstDescendant("guid")),
        texts.Text(element.FirstDescendant("id"))}) {
    if (item.link.empty() && HasScheme(address)) item.link = address;
  }
  item.isPodcast = 0;
  item.enclosureType.clear();
}

void TakeDate(const XmlElement& element, const FeedTexts& texts, FeedItem& item) {
  for (const std::string_view name :
       {"published", "updated", "created", "modified", "pubDate", "dc:date"}) {
    if (!item.date.empty()) return;
    item.date = texts.Text(element.FirstDescendant(name));
  }
}

// The text of `element` as markup, in UTF-8. Its type is one of Atom's text constructs (RFC 4287,
// 3.1) or of "media:", or a media type, as in Atom 0.3. Files that are no text give none.
std::string Markup(const XmlElement& element, std::string_view type) {
  const bool isBinary = type.find('/') != type.npos && !type.starts_with("text/");
  if (type.find("xhtml") != type.npos) return StorableMarkup(element.Markup());
  if (type.find("html") != type.npos) return StorableMarkup(element.Text());
  return isBinary || element.Attribute("mode") == "base64" ? "" : MarkupOfText(element.Text());
}

void TakeDescription(const XmlElement& element, CodePage codePage, FeedItem& item) {
  struct Source {
    std::string_view name;
    std::string_view type;  // without a "type" of its own
  };
  for (const auto& [name, type] : {Source{"content:encoded", "html"},
                                   {"content", ""},
                                   {"summary", ""},
                                   {"media:description", ""},
                                   {"itunes:summary", ""}}) {
    if (!item.description.empty()) return;
    const XmlElement found = element.FirstDescendant(name);
    if (!found) continue;
    item.description =
        codePage.FromUtf8(Markup(found, found.Attribute("type").value_or(std::string(type))));
  }
}

// The address of the item's picture, or an empty text.
std::string Picture(const XmlElement& element, const FeedTexts& texts) {
  for (const XmlElement& media : element.Descendants("media:content")) {
    if (IsImage(media)) return texts.Address(media, "url");
  }
  const XmlElement thumbnail = element.FirstDescendant("media:thumbnail");
  if (thumbnail) return texts.Address(thumbnail, "url");
  return texts.Address(element.FirstDescendant("itunes:image"), "href");
}

}  // namespace

void AddPicture(const std::string& address, FeedItem& item) {
  if (!IsWebAddress(address) || HasPicture(item.description)) return;
  item.description.insert(0, MarkupOfPicture(EscapedAddress(address)));
}

void FillFromExtensions(const XmlElement& element, const FeedReading& reading, FeedItem& item) {
  const FeedTexts texts(reading);
  TakeLink(element, texts, item);
  TakeDate(element, texts, item);
  TakeDescription(element, reading.codePage, item);
  AddPicture(reading.codePage.ToUtf8(Picture(element, texts)), item);
}

}  // namespace feedloom
