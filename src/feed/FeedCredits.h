#pragma once

#include "feed/FeedItem.h"
#include "xml/XmlDom.h"

namespace feedloom {

// Appends `text`, in one line, to `names` of authors or categories. Left out: an empty text, one
// of more than 200 bytes, one that is there already, and all behind the twentieth.
void AddName(std::vector<std::string>& names, std::string_view text);

// Reads the authors and the categories of an item or entry. Pure; any thread.
void ReadCredits(const XmlElement& element, const FeedReading& reading, FeedItem& item);

}  // namespace feedloom
