#include "platform/XmlRoom.h"

#include <libxml/SAX2.h>
#include <libxml/entities.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace feedloom {
namespace {

// What the library allocates for one of each, with the allocator's own share.
constexpr std::size_t kElement = 190;    // a node and its name in the dictionary
constexpr std::size_t kText = 140;       // a node
constexpr std::size_t kAttribute = 260;  // an attribute and the text below it
constexpr std::size_t kNamespace = 80;
// A text stands in the tree, and again among the texts that are read from there.
constexpr std::size_t kCopies = 2;

// The library compares all attributes of a tag with each other, and keeps all declarations: no feed
// needs that much of either. Comments and CDATA sections may be longer.
constexpr std::size_t kLongestTag = 256u << 10;

constexpr int kDeepestEntity = 20;

std::size_t Length(const xmlChar* text) {
  return text == nullptr ? 0 : std::strlen(reinterpret_cast<const char*>(text));
}

bool IsInLongText(const xmlParserCtxt& context) {
  return context.instate == XML_PARSER_CDATA_SECTION || context.instate == XML_PARSER_COMMENT;
}

}  // namespace

XmlRoom::XmlRoom(const XmlLimits& limits, xmlParserCtxt& context)
    : limits_(limits), context_(context) {
  // The library hands this on to the contexts in which it reads entities.
  context._private = this;
  xmlSAXHandler& events = *context.sax;
  events.startElementNs = OnElement;
  events.characters = events.ignorableWhitespace = OnText;
  events.getEntity = OnEntity;
  events.comment = nullptr;
  events.processingInstruction = nullptr;
}

bool XmlRoom::AcceptsBytes(std::size_t count) {
  bytesWithoutNews_ = IsInLongText(context_) ? 0 : bytesWithoutNews_ + count;
  exceeded_ = exceeded_ || bytesWithoutNews_ > kLongestTag;
  return !exceeded_;
}

XmlRoom& XmlRoom::Of(void* context) {
  return *static_cast<XmlRoom*>(static_cast<xmlParserCtxt*>(context)->_private);
}

void XmlRoom::OnElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                        const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                        int attributeCount, int defaultedCount, const xmlChar** attributes) {
  std::size_t bytes = kElement + Length(localName);
  for (int i = 0; i < namespaceCount; ++i) bytes += kNamespace + Length(namespaces[2 * i + 1]);
  for (int i = 0; i < attributeCount; ++i) {
    // Five pointers each, of which the last two are the value's begin and end.
    const auto valueLength = attributes[5 * i + 4] - attributes[5 * i + 3];
    bytes += kAttribute + kCopies * static_cast<std::size_t>(valueLength);
  }
  if (!Of(context).Take(bytes, context)) return;
  xmlSAX2StartElementNs(context, localName, prefix, uri, namespaceCount, namespaces, attributeCount,
                        defaultedCount, attributes);
}

void XmlRoom::OnText(void* context, const xmlChar* text, int length) {
  const xmlNode* const parent = static_cast<xmlParserCtxt*>(context)->node;
  const bool isNew =
      parent == nullptr || parent->last == nullptr || parent->last->type != XML_TEXT_NODE;
  const std::size_t bytes = kCopies * static_cast<std::size_t>(length) + (isNew ? kText : 0);
  if (Of(context).Take(bytes, context)) xmlSAX2Characters(context, text, length);
}

xmlEntity* XmlRoom::OnEntity(void* context, const xmlChar* name) {
  xmlEntity* const entity = xmlSAX2GetEntity(context, name);
  // A declaration asks for its own entity, which it refers to nowhere.
  if (entity == nullptr || static_cast<xmlParserCtxt*>(context)->inSubset != 0) return entity;
  XmlRoom& room = Of(context);
  return room.Take(room.SizeOf(entity, 0), context) ? entity : nullptr;
}

bool XmlRoom::Take(std::size_t bytes, void* context) {
  bytesWithoutNews_ = 0;
  exceeded_ = exceeded_ || !MayHold(bytes);
  if (exceeded_) xmlStopParser(static_cast<xmlParserCtxt*>(context));
  return !exceeded_;
}

bool XmlRoom::MayHold(std::size_t bytes) {
  if (bytes > limits_.most - taken_) return false;
  taken_ += bytes;
  if (taken_ <= limits_.atOnce || askedForMore_) return true;
  askedForMore_ = true;
  return limits_.askForMore();
}

// What the entity's content takes each time it is referred to, the entities in it included.
std::size_t XmlRoom::SizeOf(xmlEntity* entity, int depth) {
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
