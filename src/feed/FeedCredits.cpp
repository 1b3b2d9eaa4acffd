#include "feed/FeedCredits.h"

#include <algorithm>

#include "feed/FeedTexts.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::size_t kLongestName = 200;
constexpr std::size_t kMostNames = 20;

// An RSS author is "address (name)"; the name is what a reader wants to see.
std::string_view WithoutMailAddress(std::string_view author) {
  const std::size_t open = author.find('(');
  const bool isBehindAddress = author.substr(0, open).find('@') != author.npos;
  if (!isBehindAddress || open == author.npos || !author.ends_with(')')) return author;
  return author.substr(open + 1, author.size() - open - 2);
}

std::string AuthorName(const XmlElement& author, const FeedTexts& texts) {
  const XmlElement name = author.FirstDescendant("name");
  return name ? texts.Text(name) : std::string(WithoutMailAddress(texts.Text(author)));
}

std::string CategoryName(const XmlElement& category, const FeedTexts& texts) {
  for (const std::string_view attribute : {"label", "term"}) {
    std::string name = texts.Attribute(category, attribute);
    if (!name.empty()) return name;
  }
  return texts.Text(category);
}

}  // namespace

void AddName(std::vector<std::string>& names, std::string_view text) {
  std::string name(Trim(text));
  std::ranges::replace_if(
      name, [](char c) { return c >= '\0' && c < ' '; }, ' ');
  const bool isTaken = !name.empty() && name.size() <= kLongestName && names.size() < kMostNames;
  if (isTaken && std::ranges::find(names, name) == names.end()) names.push_back(std::move(name));
}

void ReadCredits(const XmlElement& element, const FeedReading& reading, FeedItem& item) {
  const FeedTexts texts(reading);
  for (const std::string_view name : {"dc:creator", "author", "itunes:author"}) {
    if (!item.authors.empty()) break;
    for (const XmlElement& author : element.Children(name)) {
      AddName(item.authors, AuthorName(author, texts));
    }
  }
  for (const std::string_view name : {"category", "dc:subject"}) {
    for (const XmlElement& category : element.Children(name)) {
      AddName(item.categories, CategoryName(category, texts));
    }
  }
}

}  // namespace feedloom
