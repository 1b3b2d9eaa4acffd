// RSS 2.0 documents for tests, as UTF-8 texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

// All texts are UTF-8 and unescaped; an empty one leaves its element out.
struct SampleItem {
  std::string title;
  std::string link;
  std::string date;  // as RFC 822 has it
  std::string description;
};

std::string RssDocument(std::string_view title, const std::vector<SampleItem>& items);

// `count` items: "Post 1" with link `baseLink` + "1" and description "Text 1", "Post 2" and so on,
// a minute between their dates, the first one the newest.
std::vector<SampleItem> NumberedItems(std::string_view baseLink, int count);
// NumberedItems as RSS 2.0.
std::string NumberedRss(std::string_view title, std::string_view baseLink, int count);

}  // namespace feedloom
