#include "xml/HtmlText.h"

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <memory>

#include "text/Text.h"
#include "xml/XmlLibrary.h"

namespace feedloom {
namespace {

// The parser's time grows with the square of a tag's length.
constexpr std::size_t kMostBytes = 16u << 10;

struct FreeTextContext {
  void operator()(htmlParserCtxt* context) const { htmlFreeParserCtxt(context); }
};

// The first kMostBytes of `html` without a character that is cut there.
std::string_view StartOf(std::string_view html) {
  if (html.size() <= kMostBytes) return html;
  std::size_t length = kMostBytes;
  while (length > 0 && (static_cast<unsigned char>(html[length]) & 0xC0) == 0x80) --length;
  return html.substr(0, length);
}

// Whether the words before and behind a tag of that name are two words.
bool PartsWords(const xmlChar* name) {
  const htmlElemDesc* const element = htmlTagLookup(name);
  return element == nullptr || element->isinline == 0 || xmlStrEqual(name, BAD_CAST "br") != 0;
}

struct TextReader {
  const std::size_t enough;  // bytes
  std::string text = {};
  htmlParserCtxt* context = nullptr;

  // A blank follows no other, and stands at no beginning.
  void Append(std::string_view more) {
    for (const char c : more) {
      const bool isBlank = c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
      if (!isBlank) {
        text += c;
      } else if (!text.empty() && text.back() != ' ') {
        text += ' ';
      }
    }
    if (text.size() >= enough) xmlStopParser(context);
  }

  static void OnTag(void* self, const xmlChar* name) {
    if (PartsWords(name)) static_cast<TextReader*>(self)->Append(" ");
  }
  static void OnStart(void* self, const xmlChar* name, const xmlChar**) { OnTag(self, name); }
  static void OnText(void* self, const xmlChar* text, int length) {
    static_cast<TextReader*>(self)->Append(
        {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
  }
};

}  // namespace

std::string HtmlText(std::string_view html, std::size_t characters) {
  constexpr std::size_t kLongestCharacter = 4;
  InitializeXmlOnce();
  const SilentXmlErrors silence;
  htmlSAXHandler handler{};
  handler.startElement = TextReader::OnStart;
  handler.endElement = TextReader::OnTag;
  handler.characters = handler.ignorableWhitespace = TextReader::OnText;
  handler.cdataBlock = [](void*, const xmlChar*, int) {};  // scripts and styles
  TextReader reader{.enough = characters * kLongestCharacter};
  const std::unique_ptr<htmlParserCtxt, FreeTextContext> context(
      htmlCreatePushParserCtxt(&handler, &reader, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
  if (!context) return "";
  reader.context = context.get();
  htmlCtxtUseOptions(context.get(), HTML_PARSE_RECOVER | HTML_PARSE_NONET);
  const std::string_view start = StartOf(html);
  htmlParseChunk(context.get(), start.data(), static_cast<int>(start.size()), 1);
  return std::string(Trim(reader.text));
}

}  // namespace feedloom
