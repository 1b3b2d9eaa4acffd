// Parses the bytes of one XML document with the library. Only XmlDom.cpp includes this file.
#pragma once

#include <libxml/tree.h>

#include <functional>
#include <string>

#include "xml/XmlDom.h"
#include "xml/XmlEntities.h"
#include "xml/XmlLimits.h"

namespace feedloom {

struct ParsedXml {
  XmlDocument::LoadStatus status;
  xmlDoc* tree = nullptr;   // the caller's; null unless the status is Loaded
  std::string excess = {};  // in English; empty unless the status is TooLarge
  XmlFault fault = {};      // the first one; without a line when it is well-formed
};

struct XmlBytes {
  // Reads up to `size` bytes into `buffer`. Returns their number, 0 at the end, or -1 when the
  // parse is to fail.
  std::function<int(char* buffer, int size)> read;
  std::size_t count = 0;           // of all bytes
  const char* encoding = nullptr;  // as iconv(3) names it; null: as the document declares
};

// Parses on the calling thread, which may be any. Nothing outside the bytes is ever loaded: an
// external entity counts as empty.
ParsedXml ParseXml(const XmlBytes& bytes, const XmlLimits& limits, UnknownEntities unknown);

}  // namespace feedloom
