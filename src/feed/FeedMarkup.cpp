#include "feed/FeedMarkup.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace feedloom {
namespace {

// The store decodes no reference in hexadecimal digits.
constexpr std::pair<char, std::string_view> kReferences[] = {
    {'<', "&#x3C;"}, {'>', "&#x3E;"}, {'&', "&#x26;"}, {'"', "&#x22;"}, {'\'', "&#x27;"}};

constexpr std::pair<std::string_view, std::string_view> kDecodedByTheStore[] = {
    {"&lt;", "&#x3C;"},   {"&gt;", "&#x3E;"},  {"&#62;", "&#x3E;"},
    {"&amp;", "&#x26;"},  {"&#38;", "&#x26;"}, {"&quot;", "&#x22;"},
    {"&apos;", "&#x27;"}, {"&#34;", "&#x22;"}, {"&#39;", "&#x27;"}};

// Appends `c` to `markup` in such a way that it means itself, between tags and in an attribute.
void AppendCharacter(std::string& markup, char c) {
  const auto* const known =
      std::ranges::find(kReferences, c, [](auto& pair) { return pair.first; });
  if (known == std::end(kReferences)) {
    markup += c;
  } else {
    markup += known->second;
  }
}

}  // namespace

std::string StorableMarkup(std::string_view html) {
  std::string markup;
  markup.reserve(html.size());
  while (!html.empty()) {
    const std::size_t plain = std::min(html.find('&'), html.size());
    markup += html.substr(0, plain);
    html.remove_prefix(plain);
    if (html.empty()) break;
    const auto* const known = std::ranges::find_if(
        kDecodedByTheStore, [html](auto& pair) { return html.starts_with(pair.first); });
    const bool isKnown = known != std::end(kDecodedByTheStore);
    markup += isKnown ? known->second : html.substr(0, 1);
    html.remove_prefix(isKnown ? known->first.size() : 1);
  }
  return markup;
}

std::string MarkupOfText(std::string_view text) {
  std::string markup;
  for (const char c : text) {
    if (c == '\n') markup += "<br>";
    AppendCharacter(markup, c);
  }
  return markup;
}

std::string MarkupOfPicture(std::string_view address) {
  std::string markup = "<p><img src=\"";
  for (const char c : address) AppendCharacter(markup, c);
  return markup += "\"></p>";
}

bool HasPicture(std::string_view html) {
  for (auto at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
    if (EqualsIgnoringAsciiCase(html.substr(at, 4), "<img")) return true;
  }
  return false;
}

}  // namespace feedloom
