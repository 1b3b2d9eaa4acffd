#include "feed/FeedCredits.h"

#include <algorithm>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::size_t kLongestName = 200;
constexpr std::ptrdiff_t kMostNames = 20;

// An RSS author is "address (name)"; the name is what a reader wants to see.
std::string_view WithoutMailAddress(std::string_view author) {
  const std::size_t open = author.find('(');
  const bool isBehindAddress = author.substr(0, open).find('@') != author.npos;
  if (!isBehindAddress || open == author.npos || !author.ends_with(')')) return author;
  return author.substr(open + 1, author.size() - open - 2);
}

std::string AuthorName(const XmlElement& author) {
  const XmlElement name = author.FirstDescendant("name");
  return name ? name.Text() : std::string(WithoutMailAddress(author.Text()));
}

std::string CategoryName(const XmlElement& category) {
  for (const std::string_view attribute : {"label", "term"}) {
    const auto name = category.Attribute(attribute);
    if (name && !name->empty()) return *name;
  }
  return category.Text();
}

bool HoldsLine(std::string_view lines, std::string_view line) {
  for (auto at = lines.find(line); at != lines.npos; at = lines.find(line, at + 1)) {
    const std::size_t end = at + line.size();
    const bool begins = at == 0 || lines[at - 1] == '\n';
    if (begins && (end == lines.size() || lines[end] == '\n')) return true;
  }
  return false;
}

}  // namespace

void AddName(std::string& names, std::string_view text) {
  std::string name(Trim(text));
  std::ranges::replace_if(
      name, [](char c) { return c >= '\0' && c < ' '; }, ' ');
  if (name.empty() || name.size() > kLongestName || HoldsLine(names, name)) return;
  if (!names.empty() && std::ranges::count(names, '\n') + 1 >= kMostNames) return;
  if (!names.empty()) names += '\n';
  names += name;
}

// Conversions cost more for many short texts than for a long one, so each list is converted whole.
void ReadCredits(const XmlElement& element, const FeedReading& reading, FeedItem& item) {
  std::string authors, categories;
  for (const std::string_view name : {"dc:creator", "author", "itunes:author"}) {
    if (!authors.empty()) break;
    for (const XmlElement& author : element.Children(name)) AddName(authors, AuthorName(author));
  }
  for (const std::string_view name : {"category", "dc:subject"}) {
    for (const XmlElement& category : element.Children(name)) {
      AddName(categories, CategoryName(category));
    }
  }
  item.authors = reading.codePage.FromUtf8(authors);
  item.categories = reading.codePage.FromUtf8(categories);
}

}  // namespace feedloom
