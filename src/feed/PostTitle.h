#pragma once

#include <string>

#include "feed/FeedItem.h"

namespace feedloom {

// A title for an item that has none: the first words of its text, about 80 characters, with "…"
// where there are more; else its link, else its date. Empty when it has none of these. In the
// `codePage` of the item. Pure; any thread may call it.
std::string MadeUpTitle(const FeedItem& item, CodePage codePage);

}  // namespace feedloom
