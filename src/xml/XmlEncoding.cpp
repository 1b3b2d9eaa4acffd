#include "xml/XmlEncoding.h"

#include <algorithm>

namespace feedloom {
namespace {

constexpr std::size_t kLength = 4;
constexpr char kAny = '*';  // any byte but zero

struct Start {
  char bytes[kLength];
  ForeignEncoding encoding;
};

// The first row that fits holds.
constexpr Start kStarts[] = {{{'\0', '\0', '\xFE', '\xFF'}, {"UTF-32BE", 4}},
                             {{'\xFF', '\xFE', '\0', '\0'}, {"UTF-32LE", 4}},
                             {{'\0', '\0', '\0', '<'}, {"UTF-32BE"}},
                             {{'<', '\0', '\0', '\0'}, {"UTF-32LE"}},
                             {{'\xFE', '\xFF', '\0', kAny}, {"UTF-16BE", 2}},
                             {{'\xFF', '\xFE', kAny, '\0'}, {"UTF-16LE", 2}},
                             {{'\0', '<', '\0', kAny}, {"UTF-16BE"}},
                             {{'<', '\0', kAny, '\0'}, {"UTF-16LE"}}};

bool Fits(char byte, char wanted) { return wanted == kAny ? byte != '\0' : byte == wanted; }

}  // namespace

ForeignEncoding DetectForeignEncoding(std::string_view start) {
  if (start.size() < kLength) return {};
  const auto* const row = std::ranges::find_if(kStarts, [start](const Start& one) {
    return std::equal(one.bytes, one.bytes + kLength, start.begin(),
                      [](char wanted, char byte) { return Fits(byte, wanted); });
  });
  return row == std::end(kStarts) ? ForeignEncoding() : row->encoding;
}

}  // namespace feedloom
