#include "xml/XmlEntities.h"

#include <libxml/HTMLparser.h>
#include <libxml/parserInternals.h>

#include <string>

namespace feedloom {
namespace {

bool MayBeDeclaredElsewhere(const xmlParserCtxt& context) {
  return context.standalone != 1 && (context.hasExternalSubset != 0 || context.hasPErefs != 0);
}

// What the entity stands for; empty for nothing. An ampersand in it is written as a reference,
// because the library parses it.
std::string Content(const xmlChar* name, UnknownEntities unknown) {
  if (const htmlEntityDesc* known = htmlEntityLookup(name)) {
    xmlChar character[8] = {};
    xmlCopyCharMultiByte(character, static_cast<int>(known->value));
    return reinterpret_cast<const char*>(character);
  }
  if (unknown == UnknownEntities::Refused) return "";
  return std::string("&#38;") + reinterpret_cast<const char*>(name) + ';';
}

}  // namespace

xmlEntity* DeclareUnknownEntity(const xmlParserCtxt& context, const xmlChar* name,
                                UnknownEntities unknown) {
  if (unknown == UnknownEntities::Refused && !MayBeDeclaredElsewhere(context)) return nullptr;
  const std::string content = Content(name, unknown);
  xmlDoc* const document = context.myDoc;
  if (content.empty() || document == nullptr) return nullptr;
  if (document->intSubset == nullptr) {
    xmlCreateIntSubset(document, reinterpret_cast<const xmlChar*>("document"), nullptr, nullptr);
  }
  return xmlAddDocEntity(document, name, XML_INTERNAL_GENERAL_ENTITY, nullptr, nullptr,
                         reinterpret_cast<const xmlChar*>(content.c_str()));
}

}  // namespace feedloom
