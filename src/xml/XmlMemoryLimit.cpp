#include "xml/XmlMemoryLimit.h"

#include <fmt/core.h>
#include <libxml/SAX2.h>
#include <libxml/entities.h>
#include <libxml/parserInternals.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace feedloom {
namespace {

// Bytes that the library allocates for each of these, including the allocator's overhead.
constexpr std::size_t kElement = 190;    // a node and its name in the dictionary
constexpr std::size_t kText = 140;       // a node
constexpr std::size_t kAttribute = 260;  // an attribute and the text below it
constexpr std::size_t kNamespace = 80;
// Each text is counted twice: once in the tree, and once for the copy that its reader makes.
constexpr std::size_t kCopies = 2;

// The library compares all attributes of a tag with each other, and it keeps all declarations.
// These limit both, before the tag's end has come. An attribute has a "=" each; a value may have
// more.
constexpr std::size_t kMostEquals = 10'000;
constexpr std::size_t kLongestDeclarations = 256u << 10;

// What the library has to hold in one piece, a tag or a text; its own limit is 10,000,000.
constexpr std::size_t kLongestPiece = 9u << 20;

constexpr int kDeepestEntity = 20;

std::size_t Length(const xmlChar* text) {
  return text == nullptr ? 0 : std::strlen(reinterpret_cast<const char*>(text));
}

// No tag holds one of these.
bool IsOutsideTags(const xmlParserCtxt& context) {
  return context.instate == XML_PARSER_CDATA_SECTION || context.instate == XML_PARSER_COMMENT ||
         context.instate == XML_PARSER_PI;
}

double MiB(std::size_t bytes) { return static_cast<double>(bytes) / (1 << 20); }

// Each byte of a document comes here. In blocks of a known length the compiler compares many bytes
// at once.
std::size_t CountEquals(std::string_view bytes) {
  constexpr std::size_t kBlock = 64;
  std::size_t count = 0;
  for (; bytes.size() >= kBlock; bytes.remove_prefix(kBlock)) {
    unsigned char inBlock = 0;
    for (std::size_t i = 0; i < kBlock; ++i) inBlock += static_cast<unsigned char>(bytes[i] == '=');
    count += inBlock;
  }
  return count + static_cast<std::size_t>(std::ranges::count(bytes, '='));
}

}  // namespace

XmlMemoryLimit::XmlMemoryLimit(const XmlLimits& limits, xmlParserCtxt& context,
                               UnknownEntities unknown)
    : limits_(limits), context_(context), unknown_(unknown) {
  // The library copies _private to the contexts in which it parses entities.
  context._private = this;
  xmlSAXHandler& events = *context.sax;
  events.startElementNs = OnElement;
  events.characters = events.ignorableWhitespace = OnText;
  events.getEntity = OnEntity;
  events.comment = OnComment;
  events.processingInstruction = OnInstruction;
}

bool XmlMemoryLimit::AcceptsBytes(std::string_view piece) {
  if (context_.wellFormed == 0) return false;  // the library would go on behind a fault
  read_ += piece.size();
  pending_ += piece.size();
  if (context_.inSubset != 0) declarations_ += piece.size();
  if (IsOutsideTags(context_)) equals_ = 0;
  equals_ += CountEquals(piece);
  return !Exceeds(Kind::Declarations, declarations_ > kLongestDeclarations) &&
         !Exceeds(Kind::Attributes, equals_ > kMostEquals) &&
         !Exceeds(Kind::Piece, pending_ > kLongestPiece) && !Exceeds(Kind::Memory, !MayHold(0));
}

std::string XmlMemoryLimit::Excess(std::size_t documentSize) const {
  switch (KindOfExcess()) {
    case Kind::None:
      return "";
    case Kind::Memory:
      return fmt::format(
          "too large: of its {:.1f} MiB the first {:.1f} fill the {:.0f} MiB of memory that a "
          "document may take",
          MiB(documentSize), MiB(read_), MiB(limits_.most));
    case Kind::Declarations:
      return fmt::format("too large: more than {} KiB of declarations", kLongestDeclarations >> 10);
    case Kind::Attributes:
      return fmt::format("too large: a tag with more than {} attributes", kMostEquals);
    case Kind::Piece:
      return fmt::format(
          "too large: a tag or a text of more than {:.0f} MiB in a document of {:.1f} MiB",
          MiB(kLongestPiece), MiB(documentSize));
    case Kind::Depth:
      return fmt::format("too large: more than {} elements within each other", xmlParserMaxDepth);
  }
  return "";
}

XmlMemoryLimit& XmlMemoryLimit::Of(void* context) {
  return *static_cast<XmlMemoryLimit*>(static_cast<xmlParserCtxt*>(context)->_private);
}

void XmlMemoryLimit::OnElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                               const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                               int attributeCount, int defaultedCount, const xmlChar** attributes) {
  std::size_t bytes = kElement + Length(localName);
  for (int i = 0; i < namespaceCount; ++i) bytes += kNamespace + Length(namespaces[2 * i + 1]);
  for (int i = 0; i < attributeCount; ++i) {
    // There are five pointers for each attribute; the last two are the value's begin and end.
    const auto valueLength = attributes[5 * i + 4] - attributes[5 * i + 3];
    bytes += kAttribute + kCopies * static_cast<std::size_t>(valueLength);
  }
  if (!Of(context).Take(bytes, context)) return;
  xmlSAX2StartElementNs(context, localName, prefix, uri, namespaceCount, namespaces, attributeCount,
                        defaultedCount, attributes);
}

void XmlMemoryLimit::OnText(void* context, const xmlChar* text, int length) {
  const xmlNode* const parent = static_cast<xmlParserCtxt*>(context)->node;
  const bool isNew =
      parent == nullptr || parent->last == nullptr || parent->last->type != XML_TEXT_NODE;
  const std::size_t added = static_cast<std::size_t>(length);
  XmlMemoryLimit& limit = Of(context);
  limit.textLength_ = isNew ? added : limit.textLength_ + added;
  limit.Exceeds(Kind::Piece, limit.textLength_ > kLongestPiece);
  if (limit.Take(kCopies * added + (isNew ? kText : 0), context)) {
    xmlSAX2Characters(context, text, length);
  }
}

void XmlMemoryLimit::OnComment(void* context, const xmlChar*) { Of(context).EndPiece(); }

void XmlMemoryLimit::OnInstruction(void* context, const xmlChar*, const xmlChar*) {
  Of(context).EndPiece();
}

xmlEntity* XmlMemoryLimit::OnEntity(void* context, const xmlChar* name) {
  xmlEntity* entity = xmlSAX2GetEntity(context, name);
  // While it parses declarations, the library looks up entities that nothing refers to.
  if (static_cast<xmlParserCtxt*>(context)->inSubset != 0) return entity;
  XmlMemoryLimit& limit = Of(context);
  if (entity == nullptr) entity = DeclareUnknownEntity(limit.context_, name, limit.unknown_);
  if (entity == nullptr) return nullptr;
  return limit.Take(limit.SizeOf(entity, 0), context) ? entity : nullptr;
}

bool XmlMemoryLimit::Take(std::size_t bytes, void* context) {
  EndPiece();
  const bool isExceeded = exceeded_ != Kind::None || Exceeds(Kind::Memory, !MayHold(bytes));
  if (isExceeded) xmlStopParser(static_cast<xmlParserCtxt*>(context));
  return !isExceeded;
}

void XmlMemoryLimit::EndPiece() { pending_ = equals_ = 0; }

// Returns whether anything is exceeded, now or before.
bool XmlMemoryLimit::Exceeds(Kind kind, bool itDoes) {
  if (exceeded_ == Kind::None && itDoes) exceeded_ = kind;
  return exceeded_ != Kind::None;
}

XmlMemoryLimit::Kind XmlMemoryLimit::KindOfExcess() const {
  const bool isDeep = static_cast<unsigned>(context_.nameNr) > xmlParserMaxDepth;
  return exceeded_ == Kind::None && isDeep ? Kind::Depth : exceeded_;
}

// Whether `bytes` more, and what is pending, may be held.
bool XmlMemoryLimit::MayHold(std::size_t bytes) {
  if (bytes > limits_.most - taken_) return false;
  taken_ += bytes;
  const std::size_t held = taken_ + kCopies * pending_;
  if (held > limits_.most) return false;
  if (held <= limits_.atOnce || askedForMore_) return true;
  askedForMore_ = true;
  return limits_.askForMore();
}

// The bytes that one reference to `entity` takes, including the entities in its content. `depth` is
// the number of entities around it.
std::size_t XmlMemoryLimit::SizeOf(xmlEntity* entity, int depth) {
  if (depth > kDeepestEntity) return limits_.most;
  if (const auto known = entitySizes_.find(entity); known != entitySizes_.end()) {
    return known->second;
  }
  const std::string_view content(reinterpret_cast<const char*>(entity->content),
                                 Length(entity->content));
  std::size_t size = kText + kCopies * content.size();
  size += kElement * static_cast<std::size_t>(std::ranges::count(content, '<'));
  for (auto at = content.find('&'); at != content.npos; at = content.find('&', at + 1)) {
    const std::string name(content.substr(at + 1, content.find(';', at) - at - 1));
    xmlEntity* const inner =
        xmlGetDocEntity(context_.myDoc, reinterpret_cast<const xmlChar*>(name.c_str()));
    if (inner != nullptr) size = std::min(limits_.most, size + SizeOf(inner, depth + 1));
  }
  return entitySizes_[entity] = size;
}

}  // namespace feedloom
