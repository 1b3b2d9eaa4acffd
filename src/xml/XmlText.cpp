#include "xml/XmlText.h"

#include <algorithm>
#include <array>

#include "text/Encodings.h"
#include "text/Text.h"
#include "xml/XmlEncoding.h"

namespace feedloom {
namespace {

constexpr char kUtf8[] = "UTF-8";
constexpr char kKorean[] = "EUC-KR";
constexpr char kWestern[] = "WINDOWS-1252";
constexpr std::string_view kUnknown = "\xEF\xBF\xBD";  // U+FFFD

// The value of `name` in the XML declaration that stands near the beginning of `bytes`.
std::string_view Declared(std::string_view bytes, std::string_view name) {
  constexpr std::size_t kFarthest = 1024;
  std::string_view rest = bytes.substr(0, kFarthest);
  const auto begin = rest.find("<?xml");
  if (begin == rest.npos) return {};
  rest = rest.substr(begin, rest.find("?>", begin) - begin);
  const auto at = rest.find(name);
  if (at == rest.npos) return {};
  rest = Trim(rest.substr(at + name.size()));
  if (!rest.starts_with('=')) return {};
  rest = Trim(rest.substr(1));
  if (!rest.starts_with('"') && !rest.starts_with('\'')) return {};
  return rest.substr(1, rest.find(rest[0], 1) - 1);
}

// The encoding that the document declares: the system's name of it; UTF-8 when there is none. The
// library reads EUC-KR as its superset too.
std::string DeclaredEncoding(std::string_view bytes) {
  constexpr std::string_view kOfNames =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789._-";  // XML 1.0, EncName
  const std::string name(Declared(bytes, "encoding"));
  if (name.empty() || name.find_first_not_of(kOfNames) != name.npos) return kUtf8;
  return EqualsIgnoringAsciiCase(name, kKorean) ? "CP949" : name;
}

// `text` begins like a document. A text that was read in an encoding of other width does not.
bool BeginsLikeXml(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const auto first = text.find_first_not_of(std::string_view(" \t\r\n\0", 5));
  return first != text.npos && text[first] == '<';
}

std::string TakeUnknown(std::string_view& rest) {
  rest.remove_prefix(1);
  return std::string(kUnknown);
}

// The windows-1252 character of each byte, made once: to make a converter takes long.
std::array<std::string, 256> WesternCharacters() {
  std::array<std::string, 256> all;
  for (std::size_t i = 0; i < all.size(); ++i) {
    all[i] = Utf8From(kWestern, std::string(1, static_cast<char>(i)), TakeUnknown).value_or("");
  }
  return all;
}

// What is no UTF-8 in a text that is: the rest of a character that was cut off, or a byte of
// another encoding, mostly of this one.
std::string TakeForeignByte(std::string_view& rest) {
  static const std::array<std::string, 256> kWesternCharacters = WesternCharacters();
  const std::size_t length = Utf8CharLength(rest);
  const auto byte = static_cast<unsigned char>(rest[0]);
  rest.remove_prefix(length);
  return length > 1 ? std::string(kUnknown) : kWesternCharacters[byte];
}

// Whether any character of `bytes` beyond the ASCII ones is UTF-8.
bool HoldsUtf8(std::string_view bytes) {
  const auto drop = [](std::string_view& rest) {
    rest.remove_prefix(1);
    return std::string();
  };
  const std::string text = Utf8From(kUtf8, bytes, drop).value_or("");
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

std::optional<std::string> ReadInPart(std::string_view bytes, const std::string& declared) {
  if (!EqualsIgnoringAsciiCase(declared, kUtf8)) {
    auto text = Utf8From(declared, bytes, TakeUnknown);
    if (text && BeginsLikeXml(*text)) return text;
  }
  return HoldsUtf8(bytes) ? Utf8From(kUtf8, bytes, TakeForeignByte)
                          : Utf8From(kWestern, bytes, TakeUnknown);
}

std::string Converted(std::string_view bytes) {
  const std::string declared = DeclaredEncoding(bytes);
  for (const std::string& encoding : {declared, std::string(kUtf8), std::string(kKorean)}) {
    auto text = Utf8From(encoding, bytes);
    if (text && BeginsLikeXml(*text)) return std::move(*text);
  }
  return ReadInPart(bytes, declared).value_or("");
}

}  // namespace

std::string XmlText(std::string_view bytes) {
  const ForeignEncoding foreign = DetectForeignEncoding(bytes.substr(0, 4));
  if (foreign.name == nullptr) return Converted(bytes);
  return Utf8From(foreign.name, bytes.substr(foreign.mark), TakeUnknown).value_or("");
}

}  // namespace feedloom
