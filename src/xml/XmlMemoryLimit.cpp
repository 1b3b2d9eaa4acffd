#include "xml/XmlMemoryLimit.h"

#include <libxml/SAX2.h>
#include <libxml/entities.h>

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

// The library compares all attributes of a tag with each other, and it keeps all declarations. This
// limits both; comments and CDATA sections may be longer.
constexpr std::size_t kLongestTag = 256u << 10;

constexpr int kDeepestEntity = 20;

std::size_t Length(const xmlChar* text) {
  return text == nullptr ? 0 : std::strlen(reinterpret_cast<const char*>(text));
}

bool IsInLongText(const xmlParserCtxt& context) {
  return context.instate == XML_PARSER_CDATA_SECTION || context.instate == XML_PARSER_COMMENT;
}

}  // namespace

XmlMemoryLimit::XmlMemoryLimit(const XmlLimits& limits, xmlParserCtxt& context)
    : limits_(limits), context_(context) {
  // The library copies _private to the contexts in which it parses entities.
  context._private = this;
  xmlSAXHandler& events = *context.sax;
  events.startElementNs = OnElement;
  events.characters = events.ignorableWhitespace = OnText;
  events.getEntity = OnEntity;
  events.comment = nullptr;
  events.processingInstruction = nullptr;
}

bool XmlMemoryLimit::AcceptsBytes(std::size_t count) {
  bytesSinceContent_ = IsInLongText(context_) ? 0 : bytesSinceContent_ + count;
  exceeded_ = exceeded_ || bytesSinceContent_ > kLongestTag;
  return !exceeded_;
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
  const std::size_t bytes = kCopies * static_cast<std::size_t>(length) + (isNew ? kText : 0);
  if (Of(context).Take(bytes, context)) xmlSAX2Characters(context, text, length);
}

xmlEntity* XmlMemoryLimit::OnEntity(void* context, const xmlChar* name) {
  xmlEntity* const entity = xmlSAX2GetEntity(context, name);
  // While it parses declarations, the library looks up entities that nothing refers to.
  if (entity == nullptr || static_cast<xmlParserCtxt*>(context)->inSubset != 0) return entity;
  XmlMemoryLimit& limit = Of(context);
  return limit.Take(limit.SizeOf(entity, 0), context) ? entity : nullptr;
}

bool XmlMemoryLimit::Take(std::size_t bytes, void* context) {
  bytesSinceContent_ = 0;
  exceeded_ = exceeded_ || !MayHold(bytes);
  if (exceeded_) xmlStopParser(static_cast<xmlParserCtxt*>(context));
  return !exceeded_;
}

bool XmlMemoryLimit::MayHold(std::size_t bytes) {
  if (bytes > limits_.most - taken_) return false;
  taken_ += bytes;
  if (taken_ <= limits_.atOnce || askedForMore_) return true;
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
