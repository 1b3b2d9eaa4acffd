// What a document is that is not a feed, or cannot be read.
#pragma once

#include <string>

#include "feed/FeedItem.h"
#include "feed/ParseCode.h"
#include "xml/XmlDom.h"

namespace feedloom {

enum class DocumentFaultKind {
  None,
  WebPage,        // HTML, well-formed or not
  OpmlList,       // a list of subscriptions
  OtherDocument,  // detail: the document element's name or the format, where it is known
  BrokenXml,      // line and column: the place of the first fault, from 1; detail: the reason
  Empty,          // nothing but white space
  TooLarge,       // detail: what, and by how much
  Other,
};

struct DocumentFault {
  DocumentFaultKind kind = DocumentFaultKind::None;
  int line = 0;
  int column = 0;
  std::string detail = {};  // English, UTF-8; names and reasons are as the document has them
};

// Tells what the file at `path` is, which no parser has been able to read, by its first 4 KiB.
// `excess` ("too large: …") says what of it was too large, `fault` where it is not well-formed. Any
// thread.
DocumentFault UnreadableFault(const std::string& path, const std::string& excess,
                              const XmlFault& fault = {});

// Tells what the document of `root` is, for which DetectFormat has returned `code` and `format`;
// None when it is a feed. Pure; any thread.
DocumentFault RootFault(const XmlElement& root, ParseCode code, FeedFormat format);

}  // namespace feedloom
