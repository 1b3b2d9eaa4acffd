// Estimates a document's memory while it is parsed. Only XmlDom.cpp includes this file.
#pragma once

#include <libxml/parser.h>

#include <cstddef>
#include <unordered_map>

#include "xml/XmlLimits.h"

namespace feedloom {

// Watches one parse and stops it when the document would exceed its limits. Used by one thread.
class XmlMemoryLimit {
 public:
  // `limits` and `context` must outlive the object.
  XmlMemoryLimit(const XmlLimits& limits, xmlParserCtxt& context);
  XmlMemoryLimit(const XmlMemoryLimit&) = delete;
  XmlMemoryLimit& operator=(const XmlMemoryLimit&) = delete;

  bool IsExceeded() const { return exceeded_; }

  // Called with the length of each piece of the file before it is parsed. False when the piece must
  // not be parsed.
  bool AcceptsBytes(std::size_t count);

 private:
  static XmlMemoryLimit& Of(void* context);
  static void OnElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                        const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                        int attributeCount, int defaultedCount, const xmlChar** attributes);
  static void OnText(void* context, const xmlChar* text, int length);
  static xmlEntity* OnEntity(void* context, const xmlChar* name);

  // Counts `bytes` more. False, and the parse is stopped, when that would exceed the limits.
  bool Take(std::size_t bytes, void* context);
  bool MayHold(std::size_t bytes);
  std::size_t SizeOf(xmlEntity* entity, int depth);

  const XmlLimits& limits_;
  xmlParserCtxt& context_;
  std::size_t taken_ = 0;
  std::size_t bytesSinceContent_ = 0;  // bytes read since the last element or text
  bool askedForMore_ = false;
  bool exceeded_ = false;
  std::unordered_map<const xmlEntity*, std::size_t> entitySizes_;
};

}  // namespace feedloom
