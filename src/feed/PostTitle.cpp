#include "feed/PostTitle.h"

#include "text/Encodings.h"
#include "text/Text.h"
#include "xml/HtmlText.h"

namespace feedloom {
namespace {

constexpr std::size_t kLongest = 80;   // characters
constexpr std::size_t kShortest = 40;  // a word that ends before this is cut

// The bytes that the first `characters` of `text`, in UTF-8, take.
std::size_t LengthOf(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  while (characters-- > 0 && at < text.size()) at += Utf8CharLength(text.substr(at));
  return at;
}

std::string FirstWords(std::string_view text) {
  const std::size_t longest = LengthOf(text, kLongest);
  if (longest == text.size()) return std::string(text);
  const auto blank = text.rfind(' ', longest);
  const bool endsWord = blank != text.npos && blank >= LengthOf(text, kShortest);
  return std::string(text.substr(0, endsWord ? blank : longest)) + "…";
}

}  // namespace

std::string MadeUpTitle(const FeedItem& item, CodePage codePage) {
  const std::string text = HtmlText(codePage.ToUtf8(item.description), kLongest + 1);
  if (!text.empty()) return codePage.FromUtf8(FirstWords(text));
  const std::string_view link = Trim(item.link);
  return std::string(link.empty() ? item.date : link);
}

}  // namespace feedloom
