// The 8-bit code page of the module's texts, and the only place where texts change encoding.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feedloom {

// A value; any thread may use it. The Korean code page is declared to the world as EUC-KR and
// converted as CP949, its superset, because pages and feeds that say EUC-KR do hold the extension's
// syllables.
class CodePage {
 public:
  static CodePage Korean() { return CodePage(false); }
  static CodePage Utf8() { return CodePage(true); }
  // "UTF-8" in any case gives Utf8(), everything else Korean().
  static CodePage FromName(std::string_view name);

  // "EUC-KR" or "UTF-8": the name for XML declarations and page headers.
  std::string_view DeclaredName() const;

  // UTF-8 in, this code page out. A character that the code page lacks, and bytes that are not
  // UTF-8, become "?".
  std::string FromUtf8(std::string_view text) const;

  // This code page in, well-formed UTF-8 out. Bytes outside the code page become U+FFFD.
  std::string ToUtf8(std::string_view text) const;

  // The number of bytes of the first character of `text` (not empty): at least 1, never past the
  // end. A byte that begins no character counts as one.
  std::size_t CharLength(std::string_view text) const;

  bool operator==(const CodePage&) const = default;

 private:
  explicit CodePage(bool utf8) : utf8_(utf8) {}

  bool utf8_;
};

}  // namespace feedloom
