#include "text/Encodings.h"

#include <algorithm>

#include "text/Converter.h"
#include "text/Text.h"

namespace feedloom {
std::optional<std::string> Utf8From(const std::string& encoding, std::string_view bytes,
                                    const Replacement& replacement) {
  Converter converter("UTF-8", encoding.c_str());
  if (!converter.IsKnown()) return std::nullopt;
  std::string text;
  text.reserve(bytes.size());
  while (!converter.Convert(bytes, text)) {
    if (!replacement) return std::nullopt;
    text += replacement(bytes);
  }
  return text;
}

std::size_t Utf8CharLength(std::string_view text) {
  const unsigned char lead = ByteAt(text, 0);
  if (lead < 0xC0) return 1;
  const std::size_t longest = std::min<std::size_t>(lead < 0xE0   ? 2
                                                    : lead < 0xF0 ? 3
                                                                  : 4,
                                                    text.size());
  std::size_t length = 1;
  while (length < longest && (ByteAt(text, length) & 0xC0) == 0x80) ++length;
  return length;
}

}  // namespace feedloom
