#include "xml/XmlMending.h"

#include <libxml/chvalid.h>

#include <algorithm>
#include <charconv>

#include "text/Text.h"
#include "xml/XmlText.h"

namespace feedloom {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
bool IsControl(char c) { return static_cast<unsigned char>(c) < 0x20 && !IsBlank(c); }

// The two characters beyond the ASCII ones that XML does not allow: U+FFFE and U+FFFF.
bool IsNonCharacter(std::string_view text) {
  return text.starts_with("\xEF\xBF\xBE") || text.starts_with("\xEF\xBF\xBF");
}

void AppendAllowed(std::string_view text, std::string& out) {
  constexpr std::size_t kNonCharacter = 3;
  while (!text.empty()) {
    std::size_t length = 0;
    while (length < text.size() && !IsControl(text[length]) &&
           !(text[length] == '\xEF' && IsNonCharacter(text.substr(length)))) {
      ++length;
    }
    out += text.substr(0, length);
    text.remove_prefix(length);
    if (!text.empty()) text.remove_prefix(IsControl(text[0]) ? 1 : kNonCharacter);
  }
}

// Removes what may not stand before the document, and its XML declaration.
void SkipStart(std::string_view& text) {
  const auto skipBlanks = [&text] {
    for (;;) {
      if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
      } else if (!text.empty() && (IsBlank(text[0]) || IsControl(text[0]))) {
        text.remove_prefix(1);
      } else {
        return;
      }
    }
  };
  skipBlanks();
  constexpr std::string_view kDeclaration = "<?xml";
  if (!text.starts_with(kDeclaration) || text.size() == kDeclaration.size() ||
      !IsBlank(text[kDeclaration.size()])) {
    return;
  }
  const auto end = text.find("?>");
  if (end == text.npos) return;
  text.remove_prefix(end + 2);
  skipBlanks();
}

// The length of the document type that `text` begins with.
std::size_t DocumentTypeLength(std::string_view text) {
  char quote = '\0';
  bool inSubset = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if (quote != '\0') {
      if (c == quote) quote = '\0';
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '[' || c == ']') {
      inSubset = c == '[';
    } else if (c == '>' && !inSubset) {
      return at + 1;
    }
  }
  return text.size();
}

struct Section {
  std::string_view begin;
  std::string_view end;
};

// What holds no references.
constexpr Section kSections[] = {{"<![CDATA[", "]]>"}, {"<!--", "-->"}, {"<?", "?>"}};

// The length of the section or document type that `text` begins with; else 0.
std::size_t SectionLength(std::string_view text) {
  if (text.starts_with("<!DOCTYPE")) return DocumentTypeLength(text);
  for (const Section& section : kSections) {
    if (!text.starts_with(section.begin)) continue;
    const auto end = text.find(section.end, section.begin.size());
    return end == text.npos ? text.size() : end + section.end.size();
  }
  return 0;
}

enum class ReferenceKind { None, Kept, Dropped };
struct Reference {
  ReferenceKind kind = ReferenceKind::None;
  std::size_t length = 0;
};

// The reference to a character, of which `digits` are those between "&#" and ";".
ReferenceKind KindOfNumber(std::string_view digits) {
  const int base = digits.starts_with('x') ? 16 : 10;
  if (base == 16) digits.remove_prefix(1);
  unsigned int value = 0;
  const auto [end, error] = std::from_chars(digits.begin(), digits.end(), value, base);
  if (digits.empty() || end != digits.end() || error == std::errc::invalid_argument) {
    return ReferenceKind::None;
  }
  const bool isAllowed = error == std::errc() && xmlIsCharQ(value);
  return isAllowed ? ReferenceKind::Kept : ReferenceKind::Dropped;
}

bool IsOfName(char c) {
  return IsAsciiLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
}

// What the ampersand that `text` begins with is. Only ASCII names count: HTML has no others.
Reference ReferenceAt(std::string_view text) {
  const bool isNumber = text.starts_with("&#");
  const std::size_t begin = isNumber ? 2 : 1;
  std::size_t end = begin;
  while (end < text.size() && IsOfName(text[end])) ++end;
  if (end == text.size() || text[end] != ';' || end == begin) return {};
  const std::string_view name = text.substr(begin, end - begin);
  if (isNumber) return {KindOfNumber(name), end + 1};
  return {IsAsciiLetter(name[0]) || name[0] == '_' ? ReferenceKind::Kept : ReferenceKind::None,
          end + 1};
}

// Takes the ampersand that `text` begins with, or the reference, and appends what it becomes.
void MendReference(std::string_view& text, std::string& out) {
  const Reference reference = ReferenceAt(text);
  if (reference.kind == ReferenceKind::None) {
    out += "&amp;";
    text.remove_prefix(1);
    return;
  }
  if (reference.kind == ReferenceKind::Kept) out += text.substr(0, reference.length);
  text.remove_prefix(reference.length);
}

}  // namespace

std::string MendedXml(std::string_view bytes) {
  const std::string document = XmlText(bytes);
  std::string_view text = document;
  SkipStart(text);
  std::string out;
  out.reserve(text.size());
  while (!text.empty()) {
    if (text[0] == '&') {
      MendReference(text, out);
      continue;
    }
    const std::size_t section = text[0] == '<' ? SectionLength(text) : 0;
    const std::size_t length =
        section > 0 ? section : std::min(text.find_first_of("<&", 1), text.size());
    AppendAllowed(text.substr(0, length), out);
    text.remove_prefix(length);
  }
  return out;
}

}  // namespace feedloom
