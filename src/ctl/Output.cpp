#include "ctl/Output.h"

#include <fmt/core.h>

#include <cstdio>

#include "threads/Messages.h"

namespace feedloom {
namespace {

void Write(std::FILE* stream, const std::string& line) {
  std::fwrite(line.data(), 1, line.size(), stream);
}

}  // namespace

void PrintJson(const Json& value) {
  PrintLine(value.dump(2, ' ', false, Json::error_handler_t::replace));
}

void PrintLine(std::string_view utf8) { Write(stdout, fmt::format("{}\n", utf8)); }

void PrintError(std::string_view utf8) { Write(stderr, fmt::format("feedloomctl: {}\n", utf8)); }

bool AllPrinted() { return std::fflush(stdout) == 0 && std::ferror(stdout) == 0; }

std::string_view ResultWords(int result) {
  switch (result) {
    case kDownloadFailed:
      return "download failed";
    case kLoginWanted:
      return "name and password wanted";
    case kDocumentRefused:
      return "not a feed";
    default:
      return "ok";
  }
}

std::string OneLine(std::string_view utf8) {
  std::string line;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    // The control characters U+0080 to U+009F are C2 80 to C2 9F in UTF-8.
    const bool isC1 =
        byte == 0xC2 && i + 1 < utf8.size() && static_cast<unsigned char>(utf8[i + 1]) < 0xA0;
    if (isC1) ++i;
    line += isC1 || byte < 0x20 || byte == 0x7F ? ' ' : utf8[i];
  }
  return line;
}

}  // namespace feedloom
