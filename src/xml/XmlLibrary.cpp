#include "xml/XmlLibrary.h"

#include <libxml/encoding.h>
#include <libxml/globals.h>
#include <libxml/parser.h>

#include <mutex>

namespace feedloom {

void InitializeXmlOnce() {
  static std::once_flag once;
  std::call_once(once, [] {
    xmlInitParser();
    for (const char* alias : {"EUC-KR", "KS_C_5601-1987", "KSC5601"}) {
      xmlAddEncodingAlias("CP949", alias);
    }
  });
}

SilentXmlErrors::SilentXmlErrors(void* context, xmlStructuredErrorFunc report)
    : context_(xmlStructuredErrorContext), report_(xmlStructuredError) {
  xmlSetStructuredErrorFunc(context, report);
}

SilentXmlErrors::~SilentXmlErrors() { xmlSetStructuredErrorFunc(context_, report_); }

}  // namespace feedloom
