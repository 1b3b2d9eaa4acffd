// Estimates a document's memory while it is parsed. Only XmlDom.cpp includes this file.
#pragma once

#include <libxml/parser.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

#include "xml/XmlEntities.h"
#include "xml/XmlLimits.h"

namespace feedloom {

// Watches one parse and stops it when the document would exceed its limits. Used by one thread.
class XmlMemoryLimit {
 public:
  // `limits` and `context` must outlive the object.
  XmlMemoryLimit(const XmlLimits& limits, xmlParserCtxt& context, UnknownEntities unknown);
  XmlMemoryLimit(const XmlMemoryLimit&) = delete;
  XmlMemoryLimit& operator=(const XmlMemoryLimit&) = delete;

  // Called with each piece of the file before it is parsed. False when it must not be parsed.
  bool AcceptsBytes(std::string_view piece);

  // After the parse: in English, what of the document of `documentSize` bytes was too large, and
  // how far it was read; empty when nothing was.
  std::string Excess(std::size_t documentSize) const;

 private:
  static XmlMemoryLimit& Of(void* context);
  static void OnElement(void* context, const xmlChar* localName, const xmlChar* prefix,
                        const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                        int attributeCount, int defaultedCount, const xmlChar** attributes);
  static void OnText(void* context, const xmlChar* text, int length);
  static xmlEntity* OnEntity(void* context, const xmlChar* name);
  static void OnComment(void* context, const xmlChar* text);
  static void OnInstruction(void* context, const xmlChar* target, const xmlChar* data);

  enum class Kind { None, Memory, Declarations, Attributes, Piece, Depth };

  // Counts `bytes` more. False, and the parse is stopped, when that would exceed the limits.
  bool Take(std::size_t bytes, void* context);
  bool MayHold(std::size_t bytes);
  bool Exceeds(Kind kind, bool itDoes);
  Kind KindOfExcess() const;
  void EndPiece();
  std::size_t SizeOf(xmlEntity* entity, int depth);

  const XmlLimits& limits_;
  xmlParserCtxt& context_;
  const UnknownEntities unknown_;
  std::size_t taken_ = 0;
  std::size_t read_ = 0;          // bytes of the file
  std::size_t declarations_ = 0;  // bytes of the document type
  std::size_t pending_ = 0;       // bytes since the last element, text, comment or instruction
  std::size_t equals_ = 0;        // "=" among these
  std::size_t textLength_ = 0;    // of the latest text, in bytes
  bool askedForMore_ = false;
  Kind exceeded_ = Kind::None;
  std::unordered_map<const xmlEntity*, std::size_t> entitySizes_;
};

}  // namespace feedloom
