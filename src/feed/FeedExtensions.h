#pragma once

#include "feed/FeedItem.h"
#include "xml/XmlDom.h"

namespace feedloom {

// Fills what `item` lacks from elements of `element`, its item or entry, that other formats and
// extensions use for it: "content:encoded", Atom's texts and dates, "media:", "itunes:", "guid" and
// "id". A picture of "media:" or "itunes:" comes in front of a description that shows none. Pure;
// any thread.
void FillFromExtensions(const XmlElement& element, const FeedReading& reading, FeedItem& item);

// Puts the picture at `address` (UTF-8) in front of the description when that shows none. Nothing
// happens unless the address is http or https.
void AddPicture(const std::string& address, FeedItem& item);

}  // namespace feedloom
