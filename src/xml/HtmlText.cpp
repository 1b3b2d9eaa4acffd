#include "xml/HtmlText.h"

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr std::size_t kLongestReference = 32;  // bytes of its name or digits

bool IsHtmlBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f'; }

// Takes all up to the first `end`, or all there is, off `html`.
void SkipTo(std::string_view& html, std::size_t end) {
  html.remove_prefix(std::min(end, html.size()));
}

void SkipBehind(std::string_view& html, std::string_view end) {
  SkipTo(html, html.find(end));
  SkipTo(html, end.size());
}

std::string Utf8(unsigned code) {
  std::array<xmlChar, 8> character{};
  if (code <= 0x10FFFF && IS_CHAR(code))
    xmlCopyCharMultiByte(character.data(), static_cast<int>(code));
  return reinterpret_cast<const char*>(character.data());
}

// Takes a reference to a character off `html`, which begins with an ampersand: the ampersand alone
// where it begins none.
std::string TakeReference(std::string_view& html) {
  const bool isNumber = html.starts_with("&#");
  const bool isHex = html.starts_with("&#x") || html.starts_with("&#X");
  const std::size_t begin = isHex ? 3 : isNumber ? 2 : 1;
  const std::string_view rest = html.substr(begin, kLongestReference);
  unsigned code = 0;
  std::size_t size = 0;
  if (isNumber) {
    const auto read =
        std::from_chars(rest.data(), rest.data() + rest.size(), code, isHex ? 16 : 10);
    size = static_cast<std::size_t>(read.ptr - rest.data());
  } else if (const std::size_t end = rest.find(';'); end != std::string_view::npos) {
    const std::string name(rest.substr(0, end));
    const htmlEntityDesc* const known = htmlEntityLookup(BAD_CAST name.c_str());
    if (known != nullptr) code = known->value;
    if (known != nullptr) size = end;
  }
  SkipTo(html, size == 0 ? 1 : begin + size);
  if (size != 0 && html.starts_with(';')) html.remove_prefix(1);
  return size == 0 ? "&" : Utf8(code);
}

// Takes a tag's attributes and its end off `html`. A value in quotes may hold a ">".
void SkipAttributes(std::string_view& html) {
  bool isValue = false;  // an equals sign has come, and no value yet
  while (!html.empty() && html.front() != '>') {
    const char c = html.front();
    html.remove_prefix(1);
    if (isValue && (c == '"' || c == '\'')) SkipBehind(html, {&c, 1});
    isValue = c == '=' || (isValue && IsHtmlBlank(c));
  }
  SkipTo(html, 1);
}

// Takes what stands up to the end tag off `html`, in which no markup is.
void SkipRawText(std::string_view& html, const std::string& name) {
  const std::string end = "</" + name;
  const auto found = std::search(html.begin(), html.end(), end.begin(), end.end(),
                                 [](char a, char b) { return a == b || (a | 0x20) == b; });
  SkipTo(html, static_cast<std::size_t>(found - html.begin()));
}

// Whether the words before and behind a tag of that name are two words.
bool PartsWords(const std::string& name) {
  const htmlElemDesc* const element = htmlTagLookup(BAD_CAST name.c_str());
  return element == nullptr || element->isinline == 0 || name == "br";
}

// Takes a tag off `html`, of which `begin` bytes stand before the name, and a script or a style
// with all that it holds. Whether it parts words.
bool TakeTag(std::string_view& html, std::size_t begin) {
  html.remove_prefix(begin);
  std::string name(html.substr(0, html.find_first_of(" \t\n\r\f/>")));
  html.remove_prefix(name.size());
  for (char& c : name) c = IsAsciiLetter(c) ? static_cast<char>(c | 0x20) : c;
  SkipAttributes(html);
  if (begin == 1 && (name == "script" || name == "style")) SkipRawText(html, name);
  return PartsWords(name);
}

// Takes what begins with a "<" off `html`, and returns what a reader sees of it.
std::string_view TakeMarkup(std::string_view& html) {
  const auto isLetterAt = [&](std::size_t at) {
    return html.size() > at && IsAsciiLetter(html[at]);
  };
  if (isLetterAt(1)) return TakeTag(html, 1) ? " " : "";
  if (html.starts_with("</") && isLetterAt(2)) return TakeTag(html, 2) ? " " : "";
  const bool isComment = html.starts_with("<!--");
  if (!isComment && !html.starts_with("<!") && !html.starts_with("<?") && !html.starts_with("</")) {
    html.remove_prefix(1);
    return "<";
  }
  html.remove_prefix(2);
  SkipBehind(html, isComment ? "-->" : ">");
  return "";
}

// A blank follows no other, and stands at no beginning.
void Append(std::string_view more, std::string& text) {
  for (const char c : more) {
    if (!IsHtmlBlank(c)) {
      text += c;
    } else if (!text.empty() && text.back() != ' ') {
      text += ' ';
    }
  }
}

}  // namespace

std::string HtmlText(std::string_view html, std::size_t characters) {
  constexpr std::size_t kLongestCharacter = 4;
  std::string text;
  while (!html.empty() && text.size() / kLongestCharacter < characters) {
    if (html.front() == '<') {
      Append(TakeMarkup(html), text);
    } else if (html.front() == '&') {
      Append(TakeReference(html), text);
    } else {
      const std::string_view plain = html.substr(0, html.find_first_of("<&"));
      Append(plain, text);
      html.remove_prefix(plain.size());
    }
  }
  return std::string(Trim(text));
}

}  // namespace feedloom
