// How the module uses the XML library, for those files of this folder that do.
#pragma once

#include <libxml/xmlerror.h>

namespace feedloom {

// To be called before the library is used, as often as one likes. Korean encodings are read as
// CP949 from then on. Any thread may call it.
void InitializeXmlOnce();

// The library would print to stderr, piece by piece, what the caller finds out by itself. The
// setting is the thread's, which may be the host's: it is put back when the object ends.
class SilentXmlErrors {
 public:
  SilentXmlErrors();
  ~SilentXmlErrors();
  SilentXmlErrors(const SilentXmlErrors&) = delete;
  SilentXmlErrors& operator=(const SilentXmlErrors&) = delete;

 private:
  void* const context_;
  const xmlStructuredErrorFunc report_;
};

}  // namespace feedloom
