#include "xml/HtmlLinks.h"

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <fstream>
#include <memory>

#include "net/Url.h"
#include "text/Text.h"
#include "xml/XmlLibrary.h"

namespace feedloom {
namespace {

// The parser's time grows with the square of a tag's length and with the depth of nesting. Without
// limits, a page of 1 MiB could keep it busy for minutes.
constexpr std::size_t kMaxBytes = 1 << 20;
constexpr std::ptrdiff_t kLongestTag = 16 << 10;
constexpr int kMostOpenElements = 256;
constexpr std::size_t kMaxLinks = 100;

std::string ReadStart(const std::string& path) {
  std::string text(kMaxBytes, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return text;
}

// True when `text` is well-formed UTF-8, except for a last character that may be cut off.
bool IsUtf8(std::string text) {
  while (!text.empty() && static_cast<unsigned char>(text.back()) >= 0x80) text.pop_back();
  return xmlCheckUTF8(reinterpret_cast<const xmlChar*>(text.c_str())) != 0;
}

xmlCharEncoding DetectEncoding(const std::string& text) {
  constexpr std::size_t kMarkLength = 4;
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  const int count = static_cast<int>(std::min(text.size(), kMarkLength));
  const xmlCharEncoding marked = xmlDetectCharEncoding(bytes, count);
  if (marked != XML_CHAR_ENCODING_NONE) return marked;
  return IsUtf8(text) ? XML_CHAR_ENCODING_UTF8 : XML_CHAR_ENCODING_NONE;
}

// The trimmed value of the attribute `name`; empty when it is absent. `attributes` holds names and
// values alternately and ends with a null pointer.
std::string_view Value(const xmlChar** attributes, std::string_view name) {
  for (; attributes != nullptr && attributes[0] != nullptr; attributes += 2) {
    if (name != reinterpret_cast<const char*>(attributes[0])) continue;
    return attributes[1] == nullptr ? "" : Trim(reinterpret_cast<const char*>(attributes[1]));
  }
  return "";
}

// True when `text`, split at white space, contains `word` in any ASCII case.
bool HoldsWord(std::string_view text, std::string_view word) {
  constexpr std::string_view kBlanks = " \t\n\f\r";
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of(kBlanks), text.size());
    if (EqualsIgnoringAsciiCase(text.substr(0, end), word)) return true;
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return false;
}

struct FreeHtmlContext {
  void operator()(htmlParserCtxt* context) const { htmlFreeParserCtxt(context); }
};

// Parses a page and collects its base address and its links, as they are written.
class LinkReader {
 public:
  explicit LinkReader(std::span<const std::string_view> types) : types_(types) {}

  void Read(const std::string& text) {
    constexpr std::size_t kPiece = 4096;
    htmlSAXHandler handler{};
    handler.startElement = &OnElement;
    context_.reset(
        htmlCreatePushParserCtxt(&handler, this, nullptr, 0, nullptr, DetectEncoding(text)));
    if (!context_) return;
    htmlCtxtUseOptions(context_.get(), HTML_PARSE_RECOVER | HTML_PARSE_NONET);
    for (std::size_t at = 0; at < text.size() && !HasEnough(); at += kPiece) {
      const std::size_t count = std::min(kPiece, text.size() - at);
      htmlParseChunk(context_.get(), text.data() + at, static_cast<int>(count), 0);
    }
  }

  std::vector<std::string> Resolve(const std::string& pageAddress) const {
    std::string base = ResolveUrl(pageAddress, base_);
    if (base.empty()) base = pageAddress;
    std::vector<std::string> addresses;
    for (const std::string& link : links_) {
      std::string address = ResolveUrl(base, link);
      if (!address.empty()) addresses.push_back(std::move(address));
    }
    return addresses;
  }

 private:
  static void OnElement(void* self, const xmlChar* name, const xmlChar** attributes) {
    static_cast<LinkReader*>(self)->Take(reinterpret_cast<const char*>(name), attributes);
  }

  void Take(std::string_view name, const xmlChar** attributes) {
    if (base_.empty() && name == "base") base_ = Value(attributes, "href");
    if (name == "link" && IsAlternate(attributes)) links_.emplace_back(Value(attributes, "href"));
    if (HasEnough()) xmlStopParser(context_.get());
  }

  bool IsAlternate(const xmlChar** attributes) const {
    const std::string_view type = Value(attributes, "type");
    const std::string_view essence = Trim(type.substr(0, type.find(';')));
    return HoldsWord(Value(attributes, "rel"), "alternate") &&
           std::ranges::any_of(types_, [essence](std::string_view wanted) {
             return EqualsIgnoringAsciiCase(essence, wanted);
           });
  }

  bool HasEnough() const {
    return links_.size() >= kMaxLinks || context_->nameNr >= kMostOpenElements || IsInLongTag();
  }

  // The parser buffers a tag until its end has come; this looks at what it has buffered.
  bool IsInLongTag() const {
    const htmlParserInput& input = *context_->input;
    return input.end - input.cur > kLongestTag && input.cur[0] == '<' && input.cur[1] != '!';
  }

  const std::span<const std::string_view> types_;
  std::unique_ptr<htmlParserCtxt, FreeHtmlContext> context_;
  std::string base_;
  std::vector<std::string> links_;
};

}  // namespace

std::vector<std::string> AlternateLinks(const std::string& path, const std::string& pageAddress,
                                        std::span<const std::string_view> types) {
  InitializeXmlOnce();
  const SilentXmlErrors silence;
  LinkReader reader(types);
  reader.Read(ReadStart(path));
  return reader.Resolve(pageAddress);
}

}  // namespace feedloom
