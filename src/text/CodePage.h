// The 8-bit code page of the module's texts, and the only place where these change encoding.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

// A value; any thread may use it. The Korean code page is declared as EUC-KR but converted as
// CP949, its superset: pages and feeds that declare EUC-KR contain syllables that only CP949 has.
class CodePage {
 public:
  static CodePage Korean() { return CodePage(false); }
  static CodePage Utf8() { return CodePage(true); }
  // "UTF-8" in any case gives Utf8(), everything else Korean().
  static CodePage FromName(std::string_view name);

  // The name for XML declarations and page headers: "EUC-KR" or "UTF-8".
  std::string_view DeclaredName() const;

  // Converts UTF-8 `text` to this code page. A character that the code page lacks becomes "?", and
  // so does each sequence of bytes that is not UTF-8.
  std::string FromUtf8(std::string_view text) const;

  // Converts `text` in this code page to well-formed UTF-8. Bytes that are no character of the code
  // page become U+FFFD.
  std::string ToUtf8(std::string_view text) const;

  // The length in bytes of the first character of `text`, which must not be empty. At least 1, at
  // most the length of `text`. A byte that begins no character counts as a character.
  std::size_t CharLength(std::string_view text) const;

  bool operator==(const CodePage&) const = default;

 private:
  explicit CodePage(bool utf8) : utf8_(utf8) {}

  bool utf8_;
};

}  // namespace feedloom
