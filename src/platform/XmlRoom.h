// What a document takes in memory, counted while it is read. For XmlDom.cpp.
#pragma once

#include <libxml/parser.h>

#include <cstddef>
#include <unordered_map>

#include "platform/XmlDom.h"

namespace feedloom {

// Watches one parse: it is stopped when the document would take more than its limits allow.
class XmlRoom {
 public:
  // Both outlive the object.
  XmlRoom(const XmlLimits& limits, xmlParserCtxt& context);
  XmlRoom(const XmlRoom&) = delete;
  XmlRoom& operator=(const XmlRoom&) = delete;

  bool IsExceeded() const { return exceeded_; }

  // To be told of each piece of the file before it is parsed. False: it must not be.
  bool AcceptsBytes(std::size_t count);

 private:
  static XmlRoom& Of(void* context);
  static void OnElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                        const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                        int attributeCount, int defaultedCount, const xmlChar** attributes);
  static void OnText(void* context, const xmlChar* text, int length);
  static xmlEntity* OnEntity(void* context, const xmlChar* name);

  // False, and the parse ends, when there is no room for that many bytes more.
  bool Take(std::size_t bytes, void* context);
  bool MayHold(std::size_t bytes);
  std::size_t SizeOf(xmlEntity* entity, int depth);

  const XmlLimits& limits_;
  xmlParserCtxt& context_;
  std::size_t taken_ = 0;
  std::size_t bytesWithoutNews_ = 0;  // since the last element or text
  bool askedForMore_ = false;
  bool exceeded_ = false;
  std::unordered_map<const xmlEntity*, std::size_t> entitySizes_;
};

}  // namespace feedloom
