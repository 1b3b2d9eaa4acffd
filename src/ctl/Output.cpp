#include "ctl/Output.h"

#include <fmt/core.h>

#include <cstdio>

namespace feedloom {

void PrintJson(const Json& value) {
  PrintLine(value.dump(2, ' ', false, Json::error_handler_t::replace));
}

void PrintLine(std::string_view utf8) { fmt::print("{}\n", utf8); }

void PrintError(std::string_view utf8) { fmt::print(stderr, "feedloomctl: {}\n", utf8); }

std::string OneLine(std::string_view utf8) {
  std::string line;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    // U+0080 to U+009F are C2 80 to C2 9F.
    const bool isC1 =
        byte == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0;
    if (isC1) ++i;
    line += isC1 || byte < 0x20 || byte == 0x7F ? ' ' : utf8[i];
  }
  return line;
}

}  // namespace feedloom
