#include "text/CodePage.h"

#include <iconv.h>

#include <algorithm>
#include <cerrno>

#include "text/Text.h"

namespace feedloom {
namespace {

constexpr const char* kUtf8Name = "UTF-8";
constexpr const char* kKoreanName = "CP949";

unsigned char Byte(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::size_t Utf8CharLength(std::string_view text) {
  const unsigned char lead = Byte(text, 0);
  if (lead < 0xC0) return 1;
  const std::size_t longest = std::min<std::size_t>(lead < 0xE0   ? 2
                                                    : lead < 0xF0 ? 3
                                                                  : 4,
                                                    text.size());
  std::size_t length = 1;
  while (length < longest && (Byte(text, length) & 0xC0) == 0x80) ++length;
  return length;
}

std::size_t KoreanCharLength(std::string_view text) {
  const unsigned char lead = Byte(text, 0);
  return lead > 0x80 && lead < 0xFF && text.size() > 1 && Byte(text, 1) > 0x40 ? 2 : 1;
}

class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Converter() { iconv_close(handle_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // Converts `in`, appends the result to `out`, and removes what was converted from `in`. False
  // when it stops before a character that cannot be converted.
  bool Convert(std::string_view& in, std::string& out) {
    char buffer[kLongest];
    while (!in.empty()) {
      const std::size_t given = std::min(in.size(), piece_);
      const bool isCut = given < in.size();
      char* from = const_cast<char*>(in.data());
      std::size_t left = given;
      char* to = buffer;
      std::size_t room = sizeof buffer;
      const std::size_t status = iconv(handle_, &from, &left, &to, &room);
      const int error = errno;
      out.append(buffer, sizeof buffer - room);
      in.remove_prefix(given - left);
      const bool goesOn = error == E2BIG || (error == EINVAL && isCut);
      if (status == static_cast<std::size_t>(-1) && !goesOn) {
        piece_ = kShortest;
        return false;
      }
      piece_ = std::min(2 * piece_, kLongest);
    }
    return true;
  }

 private:
  // iconv reads far ahead and starts over when it meets a character that it cannot convert. With
  // pieces of one length, a long text full of such characters would take quadratic time. So the
  // pieces are short after such a character, and their length doubles from there.
  static constexpr std::size_t kShortest = 16;
  static constexpr std::size_t kLongest = 4096;

  iconv_t handle_;
  std::size_t piece_ = kLongest;
};

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
