// Set-up of the XML library, for the files of this folder that use it.
#pragma once

#include <libxml/xmlerror.h>

namespace feedloom {

// Initializes the library and makes it read Korean encodings as CP949. Must be called before the
// library is used; later calls do nothing. Any thread may call it.
void InitializeXmlOnce();

// Keeps the library from printing errors to stderr, for the calling thread and as long as the
// object exists; `report` gets them, with `context`. The destructor restores the thread's earlier
// setting, because the thread may be the host's.
class SilentXmlErrors {
 public:
  explicit SilentXmlErrors(
      void* context = nullptr, xmlStructuredErrorFunc report = [](void*, xmlErrorPtr) {});
  ~SilentXmlErrors();
  SilentXmlErrors(const SilentXmlErrors&) = delete;
  SilentXmlErrors& operator=(const SilentXmlErrors&) = delete;

 private:
  void* const context_;
  const xmlStructuredErrorFunc report_;
};

}  // namespace feedloom
