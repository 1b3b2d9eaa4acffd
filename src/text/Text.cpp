#include "text/Text.h"

#include <algorithm>

namespace feedloom {
namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

char UpperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

std::string_view Trim(std::string_view text) {
  const auto first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

int ParseInt(std::string_view text) {
  constexpr int kLimit = 1'000'000'000;
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  long value = 0;
  for (std::size_t i = 0; i < text.size() && IsDigit(text[i]) && value < kLimit; ++i) {
    value = value * 10 + (text[i] - '0');
  }
  const int held = static_cast<int>(std::min<long>(value, kLimit));
  return negative ? -held : held;
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(text.size());
  for (;;) {
    const auto found = text.find(from);
    result += text.substr(0, found);
    if (found == std::string_view::npos) return result;
    result += to;
    text.remove_prefix(found + from.size());
  }
}

std::string ToUpperAscii(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), UpperAscii);
  return result;
}

bool HasControls(std::string_view text) {
  return std::ranges::any_of(text, [](unsigned char byte) { return byte < 0x20 || byte == 0x7F; });
}

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, UpperAscii, UpperAscii);
}

}  // namespace feedloom
