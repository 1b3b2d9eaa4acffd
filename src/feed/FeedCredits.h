#pragma once

#include "feed/FeedItem.h"
#include "xml/XmlDom.h"

namespace feedloom {

// Appends `text` as a line to `names`, those of authors or categories. Left out: an empty text, one
// of more than 200 bytes, one that is there already, and all behind the twentieth. UTF-8.
void AddName(std::string& names, std::string_view text);

// Reads the authors and the categories of an item or entry. Pure; any thread.
void ReadCredits(const XmlElement& element, const FeedReading& reading, FeedItem& item);

}  // namespace feedloom
