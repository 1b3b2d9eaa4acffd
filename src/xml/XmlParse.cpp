#include "xml/XmlParse.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>

#include <memory>

#include "xml/XmlLibrary.h"
#include "xml/XmlMemoryLimit.h"

namespace feedloom {
namespace {

// Declares an entity of the document. An external entity is declared as an empty one: the document
// remains readable, and no other file is read.
void DeclareEntity(void* context, const xmlChar* name, int type, const xmlChar* publicId,
                   const xmlChar* systemId, xmlChar* content) {
  xmlChar empty[] = {0};
  switch (type) {
    case XML_INTERNAL_GENERAL_ENTITY:
    case XML_INTERNAL_PARAMETER_ENTITY:
      xmlSAX2EntityDecl(context, name, type, publicId, systemId, content);
      break;
    case XML_EXTERNAL_PARAMETER_ENTITY:
      xmlSAX2EntityDecl(context, name, XML_INTERNAL_PARAMETER_ENTITY, nullptr, nullptr, empty);
      break;
    default:
      xmlSAX2EntityDecl(context, name, XML_INTERNAL_GENERAL_ENTITY, nullptr, nullptr, empty);
  }
}

struct FreeContext {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

struct Watched {
  const XmlBytes& bytes;
  XmlMemoryLimit& limit;
};

// The library's read callback.
int Read(void* context, char* buffer, int size) {
  const auto& [bytes, limit] = *static_cast<Watched*>(context);
  const int count = bytes.read(buffer, size);
  if (count <= 0) return count;
  return limit.AcceptsBytes({buffer, static_cast<std::size_t>(count)}) ? count : -1;
}

// The library's error callback. Notes what makes a document not well-formed.
void NoteFirst(void* context, xmlErrorPtr error) {
  auto* const first = static_cast<XmlFault*>(context);
  if (first->line > 0 || error->level != XML_ERR_FATAL) return;
  *first = {error->line, error->int2, error->message == nullptr ? "" : error->message};
}

}  // namespace

ParsedXml ParseXml(const XmlBytes& bytes, const XmlLimits& limits, UnknownEntities unknown) {
  using Status = XmlDocument::LoadStatus;
  InitializeXmlOnce();
  XmlFault fault;
  const SilentXmlErrors silence(&fault, NoteFirst);
  const std::unique_ptr<xmlParserCtxt, FreeContext> context(xmlNewParserCtxt());
  if (!context) return {Status::OutOfMemory};
  XmlMemoryLimit limit(limits, *context, unknown);
  context->sax->entityDecl = DeclareEntity;
  Watched watched{bytes, limit};
  constexpr int kOptions = XML_PARSE_NOENT | XML_PARSE_NOCDATA | XML_PARSE_COMPACT |
                           XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  const int options = bytes.encoding == nullptr ? kOptions : kOptions | XML_PARSE_IGNORE_ENC;
  xmlDoc* const tree =
      xmlCtxtReadIO(context.get(), Read, nullptr, &watched, nullptr, bytes.encoding, options);
  std::string excess = limit.Excess(bytes.count);
  if (excess.empty()) {
    return {tree != nullptr ? Status::Loaded : Status::Unreadable, tree, "", std::move(fault)};
  }
  xmlFreeDoc(tree);
  return {Status::TooLarge, nullptr, std::move(excess)};
}

}  // namespace feedloom
