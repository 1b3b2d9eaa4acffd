// What must hold for each item that is read of any feed.
#pragma once

#include <algorithm>

#include "feed/FeedDate.h"
#include "feed/FeedItem.h"
#include "fuzz/FuzzKit.h"

namespace feedloom {

inline void CheckText(std::string_view text, CodePage codePage) {
  RequireValid(text, codePage, "an item's text is one of the module's code page");
  Require(text.find('\0') == text.npos, "no text ends before its end");
}

inline void CheckNames(const std::string& names, CodePage codePage) {
  CheckText(names, codePage);
  Require(std::ranges::count(names, '\n') < 20, "an item has few authors and categories");
  Require(names.size() < 20 * 4 * 201, "names are short");
  Require(names.find("\n\n") == names.npos, "each line is a name");
}

inline void CheckItem(const FeedItem& item, CodePage codePage) {
  Require(!item.title.empty() && !item.link.empty(), "an item has a title and a link");
  for (const std::string* text :
       {&item.title, &item.link, &item.date, &item.enclosureType, &item.description}) {
    CheckText(*text, codePage);
  }
  CheckNames(item.authors, codePage);
  CheckNames(item.categories, codePage);
  std::string date = item.date;
  NormalizeFeedDate(date);
  Require(date.empty() || date.size() == 19, "a date is stored in the one form or not at all");
  Require(item.isPodcast == 1 || item.enclosureType.empty(), "only a podcast has a media type");
}

}  // namespace feedloom
