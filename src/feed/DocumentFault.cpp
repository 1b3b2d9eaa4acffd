#include "feed/DocumentFault.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string_view>

#include "text/Text.h"

namespace feedloom {
namespace {

using Kind = DocumentFaultKind;

constexpr std::string_view kTooLarge = "too large: ";

// The first 4 KiB, in upper case. Without its zero bytes a document in UTF-16 shows its tags, too.
std::string StartOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string start(4096, '\0');
  file.read(start.data(), static_cast<std::streamsize>(start.size()));
  start.resize(static_cast<std::size_t>(file.gcount()));
  std::erase(start, '\0');
  return ToUpperAscii(start);
}

// `text` without the byte order mark, of UTF-8 or UTF-16, and the white space at its start.
std::string_view WithoutMark(std::string_view text) {
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
  }
  return Trim(text);
}

// `text` from its first tag or document type on, behind instructions and comments.
std::string_view FromFirstTag(std::string_view text) {
  constexpr std::array<std::array<std::string_view, 2>, 2> kPassedBy = {
      {{"<?", "?>"}, {"<!--", "-->"}}};
  for (;;) {
    const auto* const passed = std::ranges::find_if(
        kPassedBy, [text](const auto& ends) { return text.starts_with(ends[0]); });
    if (passed == kPassedBy.end()) return text;
    const auto end = text.find((*passed)[1]);
    if (end == text.npos) return {};
    text = Trim(text.substr(end + (*passed)[1].size()));
  }
}

bool BeginsPage(std::string_view tag) {
  constexpr std::string_view kStarts[] = {"<!DOCTYPE HTML", "<HTML", "<HEAD", "<BODY", "<SCRIPT"};
  return std::ranges::any_of(kStarts, [tag](std::string_view start) {
    if (!tag.starts_with(start)) return false;
    const std::string_view rest = tag.substr(start.size());
    return rest.empty() || std::string_view(" \t\r\n/>").find(rest.front()) != rest.npos;
  });
}

bool IsBinary(std::string_view text) {
  return std::ranges::any_of(text, [](unsigned char c) {
    return c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f';
  });
}

}  // namespace

DocumentFault UnreadableFault(const std::string& path, const std::string& excess,
                              const XmlFault& fault) {
  if (excess.starts_with(kTooLarge)) {
    return {.kind = Kind::TooLarge, .detail = excess.substr(kTooLarge.size())};
  }
  if (!std::ifstream(path)) return {.kind = Kind::Other, .detail = "the file cannot be read"};
  const std::string start = StartOf(path);
  const std::string_view text = WithoutMark(start);
  if (text.empty()) return {.kind = Kind::Empty};
  if (BeginsPage(FromFirstTag(text))) return {.kind = Kind::WebPage};
  if (text.front() == '{') return {.kind = Kind::OtherDocument, .detail = "JSON"};
  const bool hasTags = text.find('<') != text.npos;
  if (!hasTags || (text.front() != '<' && IsBinary(text))) return {.kind = Kind::OtherDocument};
  if (fault.line <= 0) return {.kind = Kind::Other};
  return {Kind::BrokenXml, fault.line, fault.column, fault.reason};
}

DocumentFault RootFault(const XmlElement& root, ParseCode code, FeedFormat format) {
  if (code == kParsed && format == FeedFormat::Opml) return {.kind = Kind::OpmlList};
  if (code == kParsed) return {};
  const std::string name = root.Name();
  const std::string_view local = std::string_view(name).substr(name.find(':') + 1);
  if (EqualsIgnoringAsciiCase(local, "html")) return {.kind = Kind::WebPage};
  return {.kind = Kind::OtherDocument,
          .detail = code == kVersionRefused ? name + " of an unknown version" : name};
}

}  // namespace feedloom
