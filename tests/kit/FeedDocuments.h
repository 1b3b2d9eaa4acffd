// Feed documents for tests, as UTF-8 texts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace feedloom {

// All texts are UTF-8 and unescaped; an empty one leaves its element out.
struct SampleItem {
  std::string title;
  std::string link;
  std::string date;  // in the format's own form: RFC 822 for RSS, ISO 8601 for RDF and Atom
  std::string description;
};

// RSS 2.0 (pubDate), RSS 1.0 (rdf:RDF, dc:date) and Atom 0.3 (issued).
std::string RssDocument(std::string_view title, const std::vector<SampleItem>& items);
std::string RdfDocument(std::string_view title, const std::vector<SampleItem>& items);
std::string AtomDocument(std::string_view title, const std::vector<SampleItem>& items);

// `count` items: "Post 1" with link `baseLink` + "1" and description "Text 1", "Post 2" and so on,
// a minute between their dates, the first one the newest.
std::vector<SampleItem> NumberedItems(std::string_view baseLink, int count);
// NumberedItems as RSS 2.0.
std::string NumberedRss(std::string_view title, std::string_view baseLink, int count);

}  // namespace feedloom
