#include "text/CodePage.h"

#include <algorithm>

#include "text/Converter.h"
#include "text/Encodings.h"
#include "text/Text.h"

namespace feedloom {
namespace {

constexpr const char* kUtf8Name = "UTF-8";
constexpr const char* kKoreanName = "CP949";

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t KoreanCharLength(std::string_view text) {
  const unsigned char lead = ByteAt(text, 0);
  return lead > 0x80 && lead < 0xFF && text.size() > 1 && ByteAt(text, 1) > 0x40 ? 2 : 1;
}

template <typename CharLengthOf>
std::string Convert(std::string_view text, const char* to, const char* from,
                    std::string_view replacement, CharLengthOf charLength) {
  if (IsAscii(text)) return std::string(text);
  Converter converter(to, from);
  std::string result;
  result.reserve(text.size());
  while (!converter.Convert(text, result)) {
    result += replacement;
    text.remove_prefix(charLength(text));
  }
  return result;
}

}  // namespace

CodePage CodePage::FromName(std::string_view name) {
  return EqualsIgnoringAsciiCase(name, "UTF-8") ? Utf8() : Korean();
}

std::string_view CodePage::DeclaredName() const { return utf8_ ? "UTF-8" : "EUC-KR"; }

std::string CodePage::FromUtf8(std::string_view text) const {
  return Convert(text, utf8_ ? kUtf8Name : kKoreanName, kUtf8Name, "?", Utf8CharLength);
}

std::string CodePage::ToUtf8(std::string_view text) const {
  return Convert(text, kUtf8Name, utf8_ ? kUtf8Name : kKoreanName, "\xEF\xBF\xBD",
                 [this](std::string_view rest) { return CharLength(rest); });
}

std::size_t CodePage::CharLength(std::string_view text) const {
  return utf8_ ? Utf8CharLength(text) : KoreanCharLength(text);
}

}  // namespace feedloom
