// References to entities that a document does not declare. Only this folder includes this file.
#pragma once

#include <libxml/parser.h>

namespace feedloom {

enum class UnknownEntities {
  // A reference to an undeclared entity is an error of form, unless the document has declarations
  // that are not loaded (XML 1.0, "Entity Declared"): then the entity is one of HTML, or empty.
  Refused,
  // The entity is one of HTML or, failing that, the reference stands for itself as text.
  Kept
};

// Declares the entity `name`, which the document under `context` has not declared, in that
// document, which owns the result. Null when the reference is an error, or the entity empty.
xmlEntity* DeclareUnknownEntity(const xmlParserCtxt& context, const xmlChar* name,
                                UnknownEntities unknown);

}  // namespace feedloom
